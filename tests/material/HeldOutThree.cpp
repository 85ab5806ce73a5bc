#include "material/HeldOutThree.h"

#include "material/PageParts.h"
#include "material/Words.h"

#include <QtCore/QHash>

namespace ovrin::material {

namespace {

/// The word that is printed on a blank card in front of the dish.
QString recipeWord(const QString& language)
{
    static const QHash<QString, QString> words{
        {QStringLiteral("en"), QStringLiteral("Recipe:")},
        {QStringLiteral("de"), QStringLiteral("Rezept:")},
        {QStringLiteral("fr"), QStringLiteral("Recette :")},
        {QStringLiteral("es"), QStringLiteral("Receta:")},
        {QStringLiteral("it"), QStringLiteral("Ricetta:")},
        {QStringLiteral("nl"), QStringLiteral("Recept:")},
        {QStringLiteral("pt"), QStringLiteral("Receita:")},
        {QStringLiteral("pl"), QStringLiteral("Przepis:")},
        {QStringLiteral("sv"), QStringLiteral("Recept:")},
        {QStringLiteral("da"), QStringLiteral("Opskrift:")},
    };
    return words.value(language, words.value(QStringLiteral("en")));
}

/// At the foot of every page; the text may hold "%1" for the page.
void setFoot(Sheet& sheet, const QString& text, double size)
{
    const int pages = sheet.pageCount();
    for (int page = 0; page < pages; ++page) {
        sheet.turnTo(page, sheet.style().page.height() - sheet.style().margin);
        sheet.at(sheet.style().margin, text.contains(u'%') ? text.arg(page + 1) : text, size, false);
    }
}

/// One narrow column cut out of a newspaper, nothing said between list and method.
void setClipping(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const Style text{.size = 8.5, .firstIndent = 9, .mayJustify = true};
    sheet.paragraph(QStringLiteral("THE SATURDAY TABLE"), {.size = 7, .after = 0.6});
    setTitle(sheet, recipe, {.size = 19, .bold = true, .after = 0.3});
    if (!recipe.author.isEmpty()) {
        sheet.paragraph(recipe.author.toUpper(), {.size = 7, .after = 0.9});
    }
    setIntro(sheet, recipe, {.size = 8.5, .after = 0.8, .mayJustify = true});
    setList(sheet, recipe.ingredients, {}, {.size = 8.5});
    sheet.skip(8);
    setSteps(sheet, recipe.steps, text);
    if (!recipe.yield.isEmpty()) {
        sheet.skip(4);
        sheet.paragraph(wordsOf(recipe.language).serves.arg(recipe.yield) + u'.', text);
    }
}

/// Two recipes that neighbours gave to their book: the list in two columns, one paragraph, a name.
void setCommunity(Sheet& sheet, const Recipe& recipe, const Recipe* next)
{
    const double left = sheet.left();
    const double width = (sheet.width() - 20) / 2;
    const auto one = [&](const Recipe& shown, const QString& giver) {
        sheet.keep(120);
        sheet.paragraph(shown.title.toUpper(), {.size = 11, .bold = true, .after = 0.6, .centred = true});
        const qsizetype middle = half(shown.ingredients);
        const auto column = [&](const QStringList& entries) {
            for (const QString& entry : entries) {
                sheet.paragraph(entry,
                                {.size = 9, .bold = entry.endsWith(u':'), .indent = 9, .firstIndent = -9});
            }
        };
        sheet.sideBySide({{left, width, [&] { column(shown.ingredients.first(middle)); }},
                          {left + width + 20, width, [&] { column(shown.ingredients.sliced(middle)); }}});
        sheet.skip(7);
        sheet.paragraph(shown.steps.join(u' '), {.size = 9, .after = 0.2, .mayJustify = true});
        sheet.keep(14);
        sheet.at(left + sheet.width(), shown.author.isEmpty() ? giver : shown.author, 9, false, true);
        sheet.skip(38);
    };
    sheet.record(u"title", recipe.title);
    for (const QString& entry : recipe.ingredients) {
        sheet.record(u"ing", entry);
    }
    sheet.record(u"step", recipe.steps.join(u' '));
    one(recipe, QStringLiteral("Martha Olsen"));
    if (next != nullptr) {
        one(*next, QStringLiteral("Ruth Becker"));
    }
    setFoot(sheet, QStringLiteral("%1"), 8);
}

/// The list in sentences of its own, its entries parted by semicolons.
void setRunInList(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const Words& words = wordsOf(recipe.language);
    const Style text{.size = 9.5, .after = 0.5};
    setTitle(sheet, recipe, {.size = 16, .bold = true, .after = 0.5});
    setIntro(sheet, recipe, text);
    QString lead = words.ingredients;
    QStringList entries;
    const auto flush = [&] {
        if (!entries.isEmpty()) {
            sheet.paragraph(lead + QStringLiteral(": ") + entries.join(QStringLiteral("; ")), text);
            entries.clear();
        }
    };
    for (QString entry : recipe.ingredients) {
        entry.replace(u';', u',');
        sheet.record(u"ing", entry);
        if (entry.endsWith(u':')) {
            flush();
            lead = entry.chopped(1);
        } else {
            entries.append(entry);
        }
    }
    flush();
    sheet.record(u"step", recipe.steps.join(u' '));
    sheet.paragraph(words.directions + QStringLiteral(": ") + recipe.steps.join(u' '), text);
    QStringList facts;
    for (const auto& [label, value] : factsOf(recipe)) {
        facts.append(label + QStringLiteral(": ") + value);
    }
    sheet.paragraph(facts.join(QStringLiteral(". ")), {.size = 8.5});
    setFoot(sheet, QStringLiteral("%1"), 8);
}

/// The method first, the list in a frame below it.
void setListBelow(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const Words& words = wordsOf(recipe.language);
    setTitle(sheet, recipe, {.size = 27, .bold = true, .after = 0.3});
    setIntro(sheet, recipe, {.size = 11.5, .after = 0.9});
    setHeading(sheet, words.otherDirections, {.size = 12, .bold = true, .after = 0.4});
    setSteps(sheet, recipe.steps, {.size = 9.5, .indent = 16, .firstIndent = -16, .after = 0.5},
             QStringLiteral("%1. "));
    const double left = sheet.left();
    const double width = sheet.width();
    sheet.skip(16);
    sheet.keep(80 + 15.0 * static_cast<double>(recipe.ingredients.size()));
    const int page = sheet.page();
    const double top = sheet.y();
    sheet.sideBySide({{left + 14, width - 28, [&] {
                           sheet.skip(4);
                           setHeading(sheet, words.ingredients, {.size = 12, .bold = true, .after = 0.4});
                           QStringList facts;
                           for (const auto& [label, value] : factsOf(recipe)) {
                               facts.append(label + u' ' + value);
                           }
                           sheet.paragraph(facts.join(QStringLiteral(", ")), {.size = 8.5, .after = 0.6});
                           setList(sheet, recipe.ingredients, {}, {.size = 9.5, .after = 0.2});
                       }}});
    if (sheet.page() == page) {
        sheet.box({left, top, width, sheet.y() - top + 8});
    }
}

/// Two facing pages: what it is and what it takes at the left, what to do at the right.
void setSpread(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const Words& words = wordsOf(recipe.language);
    const double left = sheet.left();
    const double width = sheet.width() / 2 - 34;
    const double right = left + sheet.width();
    sheet.sideBySide(
        {{left, width,
          [&] {
              setTitle(sheet, recipe, {.size = 23, .after = 0.5});
              setIntro(sheet, recipe, {.size = 9.5, .after = 0.8, .mayJustify = true});
              for (const auto& [label, value] : factsOf(recipe)) {
                  sheet.paragraph(label.toUpper() + u' ' + value, {.size = 7.5});
              }
              setHeading(sheet, words.ingredients.toUpper(), {.size = 8.5, .bold = true, .after = 0.5});
              setList(sheet, recipe.ingredients, {}, {.size = 9.5, .after = 0.15});
          }},
         {right - width, width, [&] {
              for (qsizetype i = 0; i < recipe.steps.size(); ++i) {
                  sheet.record(u"step", recipe.steps[i]);
                  sheet.paragraph(recipe.steps[i],
                                  {.size = 9.5, .firstIndent = i > 0 ? 12.0 : 0.0, .mayJustify = true});
              }
          }}});
    const int pages = sheet.pageCount();
    for (int page = 0; page < pages; ++page) {
        sheet.turnTo(page, sheet.style().page.height() - 26);
        sheet.at(left, QString::number(86 + 2 * page) + QStringLiteral("   WINTER"), 7, false);
        sheet.at(right, recipe.title + QStringLiteral("   ") + QString::number(87 + 2 * page), 7, false,
                 true);
    }
}

/// A printed card that somebody filled in with a typewriter.
void setTypedCard(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const Words& words = wordsOf(recipe.language);
    sheet.record(u"title", recipe.title);
    sheet.paragraph(recipeWord(recipe.language) + u' ' + recipe.title, {.size = 9, .after = 0.2});
    if (!recipe.yield.isEmpty()) {
        sheet.paragraph(words.yield + QStringLiteral(": ") + recipe.yield, {.size = 8});
    }
    sheet.box({sheet.left(), sheet.y() + 1, sheet.width(), 0});
    sheet.skip(8);
    for (const QString& entry : recipe.ingredients) {
        sheet.record(u"ing", entry);
        sheet.paragraph(entry, {.size = 8, .indent = 15, .firstIndent = -15});
    }
    sheet.skip(8);
    setSteps(sheet, recipe.steps, {.size = 8, .firstIndent = 24});
    if (sheet.pageCount() > 1) {
        sheet.turnTo(0, sheet.style().page.height() - 20);
        sheet.at(sheet.left() + sheet.width(), QStringLiteral("(over)"), 8, false, true);
    }
}

} // namespace

const QList<SetPage>& heldOutThree()
{
    const QString serif = QStringLiteral("DejaVu Serif");
    static const QList<SetPage> all =
        QList<SetPage>{
            {QStringLiteral("clipping"),
             {.page = {230, 760},
              .margin = 20,
              .family = serif,
              .leading = 1.22,
              .justified = true,
              .hyphenated = true},
             setClipping},
            {QStringLiteral("community"),
             {.page = {396, 612},
              .margin = 40,
              .family = serif,
              .leading = 1.25,
              .justified = true,
              .footRoom = 14},
             setCommunity},
            {QStringLiteral("run-in-list"),
             {.page = {420, 595}, .margin = 50, .family = serif, .footRoom = 14},
             setRunInList},
            {QStringLiteral("list-below"), {.margin = 64}, setListBelow},
            {QStringLiteral("spread"),
             {.page = {842, 595}, .margin = 48, .family = serif, .leading = 1.4, .justified = true},
             setSpread},
            {QStringLiteral("typed-card"),
             {.page = {432, 288},
              .margin = 24,
              .family = QStringLiteral("DejaVu Sans Mono"),
              .leading = 1.25},
             setTypedCard},
        } +
        heldOutThreeSheets();
    return all;
}

} // namespace ovrin::material
