#include "material/BookPages.h"

#include "material/Words.h"

#include <QtCore/QRegularExpression>

namespace ovrin::material {

namespace {

constexpr double gutter = 22;

void setTitle(Sheet& sheet, const Recipe& recipe, double size, bool capitals = false)
{
    const QString title = capitals ? recipe.title.toUpper() : recipe.title;
    sheet.record(u"title", title);
    sheet.paragraph(title, {.size = size, .bold = true, .after = 0.4});
}

void setEntries(Sheet& sheet, const QStringList& entries, Sheet::Style style)
{
    for (const QString& entry : entries) {
        sheet.record(u"ing", entry);
        Sheet::Style own = style;
        own.bold = entry.endsWith(u':');
        sheet.paragraph(entry, own);
    }
}

void setSteps(Sheet& sheet, const Recipe& recipe, const Sheet::Style& style, bool numbered)
{
    for (qsizetype i = 0; i < recipe.steps.size(); ++i) {
        const QString number = numbered ? QString::number(i + 1) + QStringLiteral(". ") : QString();
        sheet.record(u"step", recipe.steps[i]);
        sheet.paragraph(number + recipe.steps[i], style);
    }
}

/// "Serves 4 | Prep 10 min | Cook 20 min"
void setBar(Sheet& sheet, const Recipe& recipe, double size)
{
    const Words& words = wordsOf(recipe.language);
    QStringList parts;
    if (!recipe.yield.isEmpty()) {
        parts.append(words.serves.arg(recipe.yield));
    }
    if (!recipe.prepTime.isEmpty()) {
        parts.append(words.prep + u' ' + recipe.prepTime);
    }
    if (!recipe.cookTime.isEmpty()) {
        parts.append(words.cook + u' ' + recipe.cookTime);
    }
    if (!parts.isEmpty()) {
        sheet.paragraph(parts.join(QStringLiteral(" | ")), {.size = size, .after = 1});
    }
}

/// Each step beside the ingredients it takes.
void setStepTable(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    setTitle(sheet, recipe, 20);
    setBar(sheet, recipe, 9);
    const double narrow = sheet.width() * 0.34;
    const double left = sheet.left();
    qsizetype first = 0;
    for (qsizetype i = 0; i < recipe.steps.size(); ++i) {
        const qsizetype end = recipe.ingredients.size() * (i + 1) / recipe.steps.size();
        sheet.keep(60);
        sheet.sideBySide(
            {{left, narrow,
              [&] { setEntries(sheet, recipe.ingredients.sliced(first, end - first), {.size = 9.5}); }},
             {left + narrow + gutter, sheet.width() - narrow - gutter, [&] {
                  sheet.record(u"step", recipe.steps[i]);
                  sheet.paragraph(recipe.steps[i], {.size = 9.5});
              }}});
        sheet.skip(8);
        first = end;
    }
}

/// The list in two columns above the method.
void setListInTwo(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const Words& words = wordsOf(recipe.language);
    setTitle(sheet, recipe, 22);
    sheet.paragraph(recipe.intro, {.size = 10.5, .after = 0.8});
    sheet.paragraph(words.ingredients, {.size = 14, .bold = true, .after = 0.3});
    const double width = (sheet.width() - gutter) / 2;
    const double left = sheet.left();
    const qsizetype half = (recipe.ingredients.size() + 1) / 2;
    const Sheet::Style style{.size = 10.5, .indent = 12, .firstIndent = -12, .after = 0.2};
    sheet.sideBySide(
        {{left, width, [&] { setEntries(sheet, recipe.ingredients.first(half), style); }},
         {left + width + gutter, width, [&] { setEntries(sheet, recipe.ingredients.sliced(half), style); }}});
    sheet.skip(10);
    sheet.paragraph(words.directions, {.size = 14, .bold = true, .after = 0.3});
    setSteps(sheet, recipe, {.size = 10.5, .after = 0.5}, false);
}

/// Headings and a title in spaced capitals, a line below the title, a bar of facts.
void setSpaced(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const Words& words = wordsOf(recipe.language);
    const auto spaced = [&](const QString& text) {
        QStringList letters;
        for (const QChar c : text.toUpper()) {
            letters.append(c == u' ' ? QStringLiteral(" ") : QString(c));
        }
        sheet.skip(6);
        sheet.paragraph(letters.join(u' '), {.size = 11, .bold = true, .after = 0.6});
    };
    setTitle(sheet, recipe, 19, true);
    sheet.paragraph(QStringLiteral("with thanks to everyone at home"), {.size = 9, .after = 1});
    setBar(sheet, recipe, 9);
    spaced(words.ingredients);
    setEntries(sheet, recipe.ingredients, {.size = 10});
    spaced(words.directions);
    setSteps(sheet, recipe, {.size = 10, .after = 0.4}, true);
}

/// A narrow list without any indents or spaces beside the method, a caption below the title.
void setFlushNarrow(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const Words& words = wordsOf(recipe.language);
    setTitle(sheet, recipe, 24);
    sheet.box({sheet.left(), sheet.y(), sheet.width(), 120});
    sheet.skip(126);
    sheet.paragraph(QStringLiteral("Photograph: the kitchen on a Sunday"), {.size = 6.5, .after = 2});
    const double narrow = sheet.width() * 0.3;
    const double left = sheet.left();
    sheet.sideBySide(
        {{left, narrow,
          [&] {
              sheet.paragraph(words.ingredients.toUpper(), {.size = 9, .bold = true, .after = 0.5});
              setEntries(sheet, recipe.ingredients, {.size = 9});
          }},
         {left + narrow + gutter, sheet.width() - narrow - gutter, [&] {
              sheet.paragraph(words.directions.toUpper(), {.size = 9, .bold = true, .after = 0.5});
              setSteps(sheet, recipe, {.size = 9, .firstIndent = 10}, false);
          }}});
}

/// Names at the left, amounts at the right edge of the list.
void setAmountsRight(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    static const QRegularExpression amount(
        QStringLiteral(
            "^((?:\\d[\\d/.,–-]*|[½¼¾⅓⅔])(?:\\s(?:g|kg|ml|dl|l|cups?|tbsp|tsp|EL|TL|oz|lb))?)\\s(.*)$"),
        QRegularExpression::CaseInsensitiveOption);
    const Words& words = wordsOf(recipe.language);
    setTitle(sheet, recipe, 18);
    setBar(sheet, recipe, 10);
    sheet.paragraph(words.ingredients, {.size = 13, .bold = true, .after = 0.4});
    for (const QString& entry : recipe.ingredients) {
        const auto match = amount.match(entry);
        if (!match.hasMatch() || match.captured(2).size() > 42) {
            setEntries(sheet, {entry}, {.size = 10, .after = 0.3});
            continue;
        }
        sheet.keep(20);
        sheet.record(u"ing", match.captured(2) + u' ' + match.captured(1));
        sheet.at(sheet.left() + sheet.width() * 0.75, match.captured(1), 10, false, true);
        sheet.paragraph(match.captured(2), {.size = 10, .after = 0.3});
    }
    sheet.skip(8);
    sheet.paragraph(words.directions, {.size = 13, .bold = true, .after = 0.4});
    setSteps(sheet, recipe, {.size = 10, .after = 0.5}, true);
}

/// Contents and a chapter's page in front, the next recipe behind.
void setInBook(Sheet& sheet, const Recipe& recipe, const Recipe* next)
{
    const Words& words = wordsOf(recipe.language);
    const auto onNewPage = [&] { sheet.turnTo(sheet.page() + 1, sheet.style().margin); };
    sheet.paragraph(QStringLiteral("Family Favourites"), {.size = 32, .bold = true, .after = 1});
    sheet.paragraph(QStringLiteral("Collected over many years and many dinners"), {.size = 11});
    onNewPage();
    sheet.paragraph(QStringLiteral("Contents"), {.size = 22, .bold = true, .after = 0.8});
    for (const QString& chapter : {QStringLiteral("1 Starters"), QStringLiteral("2 Mains"), recipe.title,
                                   QStringLiteral("2 eggs any style"), QStringLiteral("3 Desserts")}) {
        sheet.at(sheet.left() + sheet.width(), QString::number(chapter.size()), 10, false, true);
        sheet.paragraph(chapter, {.size = 10});
    }
    onNewPage();
    sheet.paragraph(QStringLiteral("1 Mains"), {.size = 34, .bold = true, .after = 1});
    for (const Recipe* each : {&recipe, next}) {
        if (each == nullptr) {
            continue;
        }
        onNewPage();
        sheet.at(sheet.left(), QStringLiteral("Family Favourites"), 8, false);
        sheet.skip(24);
        if (each == &recipe) {
            setTitle(sheet, recipe, 20);
        } else {
            sheet.paragraph(each->title, {.size = 20, .bold = true, .after = 0.4});
        }
        sheet.paragraph(each->intro, {.size = 10, .after = 0.8});
        sheet.paragraph(words.ingredients, {.size = 13, .bold = true, .after = 0.4});
        for (const QString& entry : each->ingredients) {
            if (each == &recipe) {
                sheet.record(u"ing", entry);
            }
            sheet.paragraph(QStringLiteral("• ") + entry, {.size = 10, .indent = 9, .firstIndent = -9});
        }
        sheet.skip(8);
        sheet.paragraph(words.directions, {.size = 13, .bold = true, .after = 0.4});
        for (const QString& step : each->steps) {
            if (each == &recipe) {
                sheet.record(u"step", step);
            }
            sheet.paragraph(step, {.size = 10, .after = 0.5});
        }
    }
}

/// Large figures in front of the steps, a large first letter, the list at the right without a heading, a tip
/// below it.
void setMagazine(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    setTitle(sheet, recipe, 28);
    if (recipe.intro.size() > 80) {
        const double top = sheet.y();
        sheet.at(sheet.left(), recipe.intro.first(1), 26, true);
        sheet.turnTo(sheet.page(), top);
        sheet.paragraph(recipe.intro.mid(1), {.size = 10, .firstIndent = 22, .after = 1, .firstLines = 2});
    }
    const double narrow = sheet.width() * 0.34;
    const double wide = sheet.width() - narrow - gutter;
    const double left = sheet.left();
    sheet.sideBySide({{left, wide,
                       [&] {
                           for (qsizetype i = 0; i < recipe.steps.size(); ++i) {
                               sheet.keep(30);
                               sheet.at(sheet.left(), QString::number(i + 1), 20, true);
                               sheet.record(u"step", recipe.steps[i]);
                               sheet.paragraph(recipe.steps[i], {.size = 10, .indent = 28, .after = 1});
                           }
                       }},
                      {left + wide + gutter, narrow, [&] {
                           setEntries(sheet, recipe.ingredients, {.size = 9, .after = 0.4});
                           sheet.skip(14);
                           sheet.paragraph(QStringLiteral("TIP"), {.size = 9, .bold = true});
                           sheet.paragraph(
                               QStringLiteral("Set the table before you begin, and keep a towel at hand."),
                               {.size = 8});
                       }}});
}

/// A whole recipe; only what `recorded` names is what a reader should find.
void setWhole(Sheet& sheet, const Recipe& recipe, double titleSize, bool headed, bool recorded)
{
    const Words& words = wordsOf(recipe.language);
    const auto record = [&](const char16_t* kind, const QString& text) {
        if (recorded) {
            sheet.record(kind, text);
        }
    };
    record(u"title", recipe.title);
    sheet.paragraph(recipe.title, {.size = titleSize, .bold = true, .after = 0.5});
    if (!recipe.yield.isEmpty()) {
        sheet.paragraph(words.serves.arg(recipe.yield), {.size = 9, .after = 0.6});
    }
    if (headed) {
        sheet.paragraph(words.ingredients, {.size = 10.5, .bold = true, .after = 0.3});
    }
    for (const QString& entry : recipe.ingredients) {
        record(u"ing", entry);
        sheet.paragraph(entry, {.size = 9, .indent = 10, .firstIndent = -10});
    }
    sheet.skip(7);
    if (headed) {
        sheet.paragraph(words.directions, {.size = 10.5, .bold = true, .after = 0.3});
    }
    for (qsizetype i = 0; i < recipe.steps.size(); ++i) {
        record(u"step", recipe.steps[i]);
        sheet.paragraph(recipe.steps[i], {.size = 9, .after = 0.4});
    }
    sheet.skip(22);
}

/// One recipe below the other.
void setStacked(Sheet& sheet, const Recipe& recipe, const Recipe* next)
{
    setWhole(sheet, recipe, 13, true, true);
    if (next != nullptr) {
        setWhole(sheet, *next, 13, true, false);
    }
}

void setStackedBare(Sheet& sheet, const Recipe& recipe, const Recipe* next)
{
    setWhole(sheet, recipe, 13, false, true);
    if (next != nullptr) {
        setWhole(sheet, *next, 13, false, false);
    }
}

/// One recipe beside the other.
void setBeside(Sheet& sheet, const Recipe& recipe, const Recipe* next)
{
    const double width = (sheet.width() - gutter) / 2;
    const double left = sheet.left();
    sheet.sideBySide({{left, width, [&] { setWhole(sheet, recipe, 14, true, true); }},
                      {left + width + gutter, width, [&] {
                           if (next != nullptr) {
                               setWhole(sheet, *next, 14, true, false);
                           }
                       }}});
}

/// The title is no larger than the text.
void setModest(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    setWhole(sheet, recipe, 9.5, true, true);
}

} // namespace

const QList<SetPage>& bookPages()
{
    static const QString serif = QStringLiteral("DejaVu Serif");
    static const QString inter = QStringLiteral("Inter");
    static const QList<SetPage> all{
        {QStringLiteral("step-table"), {.margin = 45, .family = inter}, setStepTable},
        {QStringLiteral("list-in-two"), {.family = serif}, setListInTwo},
        {QStringLiteral("spaced-headings"), {.family = inter}, setSpaced},
        {QStringLiteral("flush-narrow"), {.margin = 40, .family = serif, .leading = 1.3}, setFlushNarrow},
        {QStringLiteral("amounts-right"), {.family = inter}, setAmountsRight},
        {QStringLiteral("in-book"), {.page = {420, 595}, .margin = 45, .family = serif}, setInBook},
        {QStringLiteral("two-stacked"), {.margin = 45, .family = inter}, setStacked},
        {QStringLiteral("two-stacked-bare"), {.margin = 45, .family = serif}, setStackedBare},
        {QStringLiteral("two-beside"), {.page = {842, 595}, .margin = 40, .family = serif}, setBeside},
        {QStringLiteral("modest"), {.page = {420, 595}, .margin = 40, .family = inter}, setModest},
        {QStringLiteral("large-figures"), {.margin = 40, .family = inter}, setMagazine},
    };
    return all;
}

} // namespace ovrin::material
