#include "material/Words.h"

#include <QtCore/QHash>
#include <QtCore/QStringList>

namespace ovrin::material {

namespace {

Words row(const char16_t* text)
{
    const QStringList w = QString::fromUtf16(text).split(u'|');
    return {w[0], w[1], w[2], w[3], w[4], w[5], w[6], w[7], w[8], w[9], w[10]};
}

} // namespace

const Words& wordsOf(const QString& language)
{
    static const QHash<QString, Words> words{
        {QStringLiteral("en"),
         row(u"Ingredients|Directions|What you need|Method|Notes|Nutrition|Prep time|Cook time|"
             u"Servings|Serves %1|Step")},
        {QStringLiteral("de"),
         row(u"Zutaten|Zubereitung|Das brauchst du|So geht’s|Tipps|Nährwerte|Vorbereitungszeit|"
             u"Kochzeit|Portionen|Für %1 Personen|Schritt")},
        {QStringLiteral("fr"),
         row(u"Ingrédients|Préparation|Il vous faut|Étapes|Astuces|Valeurs nutritionnelles|"
             u"Temps de préparation|Temps de cuisson|Portions|Pour %1 personnes|Étape")},
        {QStringLiteral("es"),
         row(u"Ingredientes|Preparación|Necesitas|Elaboración|Consejos|Información nutricional|"
             u"Tiempo de preparación|Tiempo de cocción|Raciones|Para %1 personas|Paso")},
        {QStringLiteral("it"),
         row(u"Ingredienti|Preparazione|Occorrente|Procedimento|Consigli|Valori nutrizionali|"
             u"Tempo di preparazione|Tempo di cottura|Porzioni|Per %1 persone|Passo")},
        {QStringLiteral("nl"), row(u"Ingrediënten|Bereiding|Dit heb je nodig|Werkwijze|Tips|Voedingswaarden|"
                                   u"Voorbereidingstijd|Kooktijd|Porties|Voor %1 personen|Stap")},
        {QStringLiteral("pt"), row(u"Ingredientes|Modo de preparo|Vai precisar de|Preparação|Dicas|"
                                   u"Informação nutricional|Tempo de preparo|Tempo de cozimento|Porções|"
                                   u"Para %1 pessoas|Passo")},
        {QStringLiteral("pl"),
         row(u"Składniki|Przygotowanie|Potrzebne składniki|Sposób przygotowania|Wskazówki|"
             u"Wartości odżywcze|Czas przygotowania|Czas gotowania|Liczba porcji|%1 porcje|Krok")},
        {QStringLiteral("sv"),
         row(u"Ingredienser|Gör så här|Du behöver|Tillagning|Tips|Näringsvärde|Förberedelse|"
             u"Tillagningstid|Portioner|%1 portioner|Steg")},
        {QStringLiteral("da"),
         row(u"Ingredienser|Fremgangsmåde|Du skal bruge|Sådan gør du|Tips|Næringsindhold|"
             u"Forberedelse|Tilberedningstid|Portioner|%1 portioner|Trin")},
    };
    const auto found = words.constFind(language);
    return found == words.cend() ? words.constFind(QStringLiteral("en")).value() : found.value();
}

} // namespace ovrin::material
