#include "import/document/RecipeFacts.h"

#include "import/document/RecipeTextParser.h"

#include <QtCore/QRegularExpression>

#include <algorithm>

namespace ovrin {

namespace {

QRegularExpression pattern(const QString& text)
{
    return QRegularExpression(text, QRegularExpression::CaseInsensitiveOption |
                                        QRegularExpression::UseUnicodePropertiesOption);
}

constexpr qsizetype longestYield = 60;
constexpr qsizetype longestFactLine = 160;

/// Most lines of a page are running text, and told at a glance: a fact of that length has a number, a colon
/// or something that parts it from the next one.
bool isCertainlyNone(const QString& line)
{
    constexpr qsizetype longestBareFact = 60;
    return line.size() > longestBareFact && std::none_of(line.begin(), line.end(), [](QChar c) {
               return c.isDigit() || c == u'\t' || QStringView(u":：•·|│⋅∙●◦/—–").contains(c);
           });
}

} // namespace

struct RecipeFacts::Label
{
    Kind kind;
    QRegularExpression form;
};

const QList<RecipeFacts::Label>& RecipeFacts::labels()
{
    // A label that is a word of everyday language too counts only with a colon or the right kind of value.
    static const auto label = [](Kind kind, const char16_t* words) {
        return Label{kind, pattern(QStringLiteral("^(?:%1)(?:\\s*([:：])\\s*|\\s+|(?=\\d)|$)(.*)$")
                                       .arg(QString::fromUtf16(words)))};
    };
    static const QList<Label> all{
        label(
            Kind::Ignored,
            u"difficulty|level|skill level|course|cuisine|category|calories|kcal|rating|diet|cost|"
            u"(?:inactive|rest|resting|chill|chilling|additional|cooling|standing|rising|marinating)(?: "
            u"time)?|"
            u"schwierigkeit|schwierigkeitsgrad|ruhezeit|kategorie|abwaschaufwand|niveau|difficulté|coût|"
            u"repos|"
            u"temps de repos|dificultad|categoría|difficoltà|costo|moeilijkheid|moeilijkheidsgraad|gang|"
            u"dificuldade|trudność|poziom trudności|kategoria|svårighetsgrad|sværhedsgrad|published|updated|"
            u"printed|print date|tags|keywords?"),
        label(
            Kind::Prep,
            u"prep(?:aration)?\\.? time|prep|preparation|hands-on(?: time)?|vorbereitungszeit|vorbereitung|"
            u"arbeitszeit|temps de préparation|préparation|tiempo de preparación|preparación|"
            u"tempo di preparazione|preparazione|voorbereidingstijd|voorbereiding|tempo de prepar(?:o|ação)|"
            u"preparo|preparação|czas przygotowania|przygotowanie|förberedelse(?:r|tid)?|"
            u"forberedelse(?:stid)?"),
        label(Kind::Cook,
              u"(?:cook|cooking|bake|baking|active|grill|roasting)(?: time)?|kochzeit|backzeit|garzeit|"
              u"koch-/backzeit|kochen|backen|temps de cuisson|cuisson|tiempo de cocción|cocción|"
              u"tempo di cottura|cottura|kooktijd|baktijd|oventijd|tempo de (?:cozimento|forno)|cozimento|"
              u"czas (?:gotowania|pieczenia)|gotowanie|pieczenie|kogetid|bagetid|stegetid|tillagningstid|"
              u"ugnstid|koktid|tilberedningstid"),
        label(Kind::Total,
              u"total(?: time)?|ready in|time|duration|gesamtzeit|gesamt|zubereitungszeit|dauer|temps total|"
              u"durée(?: totale)?|tiempo total|tiempo|tempo totale|tempo total|tempo|totale tijd|totaal|"
              u"bereidingstijd|czas (?:całkowity|wykonania)|łączny czas|czas|total tid|tid|samlet tid|"
              u"arbejdstid"),
        label(
            Kind::Yield,
            u"yields?|serves|servings?|makes|portions?|portionen|ergibt|personen|nombre de personnes|"
            u"personnes|parts|raciones|porciones|comensales|rinde|rendimiento|porzioni|dosi(?: per)?|persone|"
            u"aantal personen|porties|porções|rendimento|rende|porcje|liczba porcji|ilość porcji|portioner|"
            u"antal(?: portioner| personer)?|personer"),
        label(Kind::Author,
              u"(?:written )?by|author|rezept "
              u"von|von|autor(?:in)?|"
              u"recette de|par|auteur|receta de|por|ricetta di|autore|recept van|door|receita de|autora|"
              u"przepis|recept av|av|opskrift af|af|forfatter"),
        // What follows these is a name, whatever it looks like.
        {Kind::Author,
         pattern(QStringLiteral(
             "^(?:(?:recipe )?from the kitchen of|recipe by|(?:recipe )?(?:shared|posted|submitted) by|"
             "aus der küche von|de la cuisine de|"
             "de la cocina de|dalla cucina di|uit de keuken van|da cozinha de|z kuchni|från köket hos|fra "
             "køkkenet hos)"
             "(\\s*[:：]\\s*|\\s+)(.*)$"))},
        label(Kind::Publisher,
              u"source|publisher|published (?:by|in)|quelle|fuente|fonte|bron|źródło|källa|kilde"),
    };
    return all;
}

std::optional<qint64> durationMinutes(const QString& text)
{
    static const QRegularExpression amount = pattern(
        QStringLiteral("(\\d{1,6})(?:[.,](5))?\\s*([½¼¾])?\\s*"
                       "(?:(hours?|hrs?|h|std|stunden?|heures?|horas?|or[ae]|uur|uren|godz|godzin[ay]?|"
                       "timm(?:e|ar)|timer?|tim)|"
                       "(minut\\p{L}{0,2}|mins?|min|minuut|m|′|'))(?![\\p{L}\\d])"));
    qint64 sum = 0;
    auto matches = amount.globalMatch(text);
    while (matches.hasNext()) {
        const auto match = matches.next();
        const qint64 unit = match.hasCaptured(4) ? 60 : 1;
        const QString fraction = match.captured(3);
        const qint64 quarters = fraction == u"½" ? 2 : fraction == u"¼" ? 1 : fraction == u"¾" ? 3 : 0;
        sum += match.captured(1).toLongLong() * unit + quarters * unit / 4 +
               (match.hasCaptured(2) ? unit / 2 : 0);
    }
    return sum < 1 ? std::nullopt : std::optional(sum);
}

bool RecipeFacts::isFact(const QString& line)
{
    RecipeDraft scratch;
    RecipeFacts facts(scratch);
    return facts.read(line) && facts.m_awaited.isEmpty();
}

bool RecipeFacts::read(const QString& line)
{
    static const QRegularExpression separator = pattern(
        QStringLiteral("\\s*[•·|│⋅∙●◦]\\s*|\\s+[—–/]\\s+|\\s{3,}|\\t+|"
                       "(?<=\\S)\\s+(?=(?:prep|cook|total|active)\\s+time\\b|servings?\\s*:|yields?\\s*:)"));
    if (line.size() > longestFactLine || isCertainlyNone(line)) {
        return false;
    }
    // "Servings 4, prep time 10 min, cook time 40 min".
    const QStringList listed = line.split(QStringLiteral(", "));
    if (listed.size() > 1 && std::all_of(listed.begin(), listed.end(), isFact)) {
        for (const QString& fact : listed) {
            readSegment(fact.trimmed());
        }
        return true;
    }
    bool any = false;
    bool prose = false;
    for (const QString& segment : line.split(separator, Qt::SkipEmptyParts)) {
        const bool fact = readSegment(segment.trimmed());
        any = any || fact;
        prose = prose || (!fact && segment.size() > 40);
    }
    return any && !prose;
}

bool RecipeFacts::readSegment(const QString& segment)
{
    static const QRegularExpression sign = pattern(QStringLiteral("^[^\\p{L}\\p{N}(]+"));
    QString text = segment;
    text.remove(sign);
    if (text.isEmpty()) {
        return false;
    }
    // The strict reading takes whatever follows "makes", so a wrapped sentence must not reach it.
    const bool mayBeStrict =
        text.front().isUpper() || std::any_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); });
    if (mayBeStrict && RecipeTextParser::metadata(text, m_draft)) {
        return true;
    }
    // Labels in one row above their values in the next.
    if (!m_awaited.isEmpty() && isBareLabel(text)) {
        return readLabelled(text);
    }
    if (!m_awaited.isEmpty() && text.size() < longestYield && store(m_awaited.first(), text, true)) {
        m_awaited.removeFirst();
        return true;
    }
    return readLabelled(text) || readBare(text);
}

bool RecipeFacts::areSeveral(const QString& line)
{
    static const QRegularExpression separator = pattern(QStringLiteral("\\s*[•·|│⋅∙●◦]\\s*"));
    const QStringList segments = line.split(separator, Qt::SkipEmptyParts);
    const auto isLabelled = [](const QString& segment) {
        RecipeDraft scratch;
        return RecipeFacts(scratch).readLabelled(segment.trimmed());
    };
    return line.size() <= longestFactLine && segments.size() > 1 &&
           std::all_of(segments.begin(), segments.end(), isLabelled);
}

bool RecipeFacts::isYield(const QString& line)
{
    RecipeDraft scratch;
    RecipeFacts facts(scratch);
    return facts.read(line) && !scratch.yield.isEmpty() && !scratch.prepMinutes && !scratch.cookMinutes &&
           !scratch.totalMinutes;
}

bool RecipeFacts::isDuration(const QString& text)
{
    static const QRegularExpression duration = pattern(
        QStringLiteral("^(?:about |ca\\.? )?\\d[\\d\\s.,½¼¾–-]*(?:hours?|hrs?|h|minutes?|mins?|std\\.?|"
                       "stunden?|minuten|minuti|minutos|minuut|minut|minuter|minutter|heures?|horas?|"
                       "or[ae]|uur|godz\\.?|timmar|timer)\\b[\\s\\d]*(?:and )?(?:minutes?|mins?|min)?\\.?$"));
    return duration.match(text).hasMatch();
}

bool RecipeFacts::isBareLabel(const QString& text)
{
    return std::any_of(labels().begin(), labels().end(), [&](const Label& label) {
        const auto match = label.form.match(text);
        return match.hasMatch() && match.captured(2).trimmed().isEmpty();
    });
}

bool RecipeFacts::readLabelled(const QString& text)
{
    for (const Label& label : labels()) {
        const auto match = label.form.match(text);
        if (!match.hasMatch()) {
            continue;
        }
        const QString value = match.captured(2).trimmed();
        const bool colon = match.hasCaptured(1);
        if (value.isEmpty()) {
            const bool isTerse = label.kind != Kind::Author || colon;
            if (isTerse && label.kind != Kind::Publisher) {
                m_awaited.append(label.kind);
                return true;
            }
            continue;
        }
        if (store(label.kind, value, colon)) {
            return true;
        }
    }
    return false;
}

bool RecipeFacts::store(Kind kind, const QString& value, bool afterColon)
{
    static const QRegularExpression name = pattern(
        QStringLiteral("^(?-i:\\p{Lu})[\\p{L}.’'-]*(?:\\s+(?:(?-i:\\p{Lu})[\\p{L}.’'-]*|de|van|von|der|di|da|"
                       "and|und|&)){0,4}$|"
                       // The name that somebody has on a site.
                       "^(?=\\S*[\\d_-])\\p{L}[\\p{L}\\d_-]*(?:\\s*[·|,–—-]\\s*\\d{4}-\\d\\d-\\d\\d)?$"));
    static const QRegularExpression count = pattern(QStringLiteral("^(?:about|ca\\.?|circa|etwa)?\\s*\\d"));
    const std::optional<qint64> minutes = durationMinutes(value);
    switch (kind) {
    case Kind::Prep:
    case Kind::Cook:
    case Kind::Total: {
        if (!minutes || value.size() > 40) {
            return false;
        }
        auto& field = kind == Kind::Prep   ? m_draft.prepMinutes
                      : kind == Kind::Cook ? m_draft.cookMinutes
                                           : m_draft.totalMinutes;
        field = minutes;
        return true;
    }
    case Kind::Yield:
        if (value.size() >= longestYield || (!afterColon && !count.match(value).hasMatch())) {
            return false;
        }
        m_draft.yield = value;
        return true;
    case Kind::Author:
        if (value.size() > longestYield || (!afterColon && !name.match(value).hasMatch())) {
            return false;
        }
        m_draft.author = value;
        return true;
    case Kind::Publisher:
        if (!afterColon || value.size() > longestYield) {
            return false;
        }
        m_draft.publisher = value;
        return true;
    case Kind::Ignored:
        return value.size() < 40 && (afterColon || value.split(u' ').size() <= 3);
    }
    return false;
}

bool RecipeFacts::readBare(const QString& text)
{
    static const QRegularExpression portions = pattern(QStringLiteral(
        "^(?:for|für|pour|para|per|voor|dla|till|til|à)?\\s*(?:about |ca\\.? )?\\d+"
        "(?:\\s*(?:[-–]|to|bis|à|a)\\s*\\d+)?\\s*(?:servings?|portions?|people|persons?|personen|"
        "portionen|stück|personnes|parts|pièces|personas|raciones|porciones|persone|porzioni|"
        "porties|pessoas|porções|osób|osoby|porcj[ei]|personer|portioner|pers\\.?)\\b[^.]{0,30}$"));
    static const QRegularExpression publicationDate = pattern(
        QStringLiteral("^(?:\\d{1,2}[./]\\d{1,2}[./]\\d{2,4}|\\p{L}{3,9}\\.? \\d{1,2}, \\d{4}|\\d{1,2}\\.? "
                       "\\p{L}{3,9}\\.? \\d{4})$"));
    if (portions.match(text).hasMatch()) {
        if (m_draft.yield.isEmpty()) {
            m_draft.yield = text;
        }
        return true;
    }
    if (isDuration(text)) {
        if (!m_draft.totalMinutes) {
            m_draft.totalMinutes = durationMinutes(text);
        }
        return true;
    }
    return publicationDate.match(text).hasMatch();
}

} // namespace ovrin
