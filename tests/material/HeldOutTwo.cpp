#include "material/HeldOutTwo.h"

#include "material/PageParts.h"
#include "material/Words.h"

#include <QtCore/QHash>

namespace ovrin::material {

namespace {

/// The headings of an older or a chattier page: list with the yield in it, and method.
std::pair<QString, QString> spokenHeadings(const Recipe& recipe)
{
    static const QHash<QString, QString> words{
        {QStringLiteral("en"), QStringLiteral("For %1 you will need|How to make it")},
        {QStringLiteral("de"), QStringLiteral("Zutaten für %1|Und so wird’s gemacht")},
        {QStringLiteral("fr"), QStringLiteral("Les ingrédients pour %1|Réalisation")},
        {QStringLiteral("es"), QStringLiteral("Ingredientes para %1|Cómo se prepara")},
        {QStringLiteral("it"), QStringLiteral("Ingredienti per %1|Come si prepara")},
        {QStringLiteral("nl"), QStringLiteral("Ingrediënten voor %1|Zo maak je het")},
        {QStringLiteral("pt"), QStringLiteral("Ingredientes para %1|Como fazer")},
        {QStringLiteral("pl"), QStringLiteral("Składniki na %1|Wykonanie")},
        {QStringLiteral("sv"), QStringLiteral("Ingredienser till %1|Så här gör du")},
        {QStringLiteral("da"), QStringLiteral("Ingredienser til %1|Sådan gør du")},
    };
    const QString found = words.value(recipe.language, words.value(QStringLiteral("en")));
    const QString yield = recipe.yield.isEmpty() ? QStringLiteral("4") : recipe.yield;
    return {found.section(u'|', 0, 0).arg(yield), found.section(u'|', 1)};
}

/// The first letter over two lines, the text around it.
void setDropCap(Sheet& sheet, const QString& text, double size)
{
    sheet.keep(size * 5);
    sheet.at(sheet.left(), text.first(1), size * 2.4, true);
    sheet.paragraph(text.mid(1), {.size = size, .firstIndent = size * 2, .after = 0.6, .firstLines = 2});
}

void setAmountTable(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const Words& words = wordsOf(recipe.language);
    setTitle(sheet, recipe, {.size = 20, .bold = true, .after = 0.6, .centred = true});
    for (const auto& [label, value] : factsOf(recipe)) {
        sheet.paragraph(label + QStringLiteral(":  ") + value, {.size = 11, .after = 0.1, .centred = true});
    }
    setHeading(sheet, words.ingredients, {.size = 14, .bold = true, .after = 0.5});
    for (const QString& entry : recipe.ingredients) {
        const Entry cells = entryOf(entry);
        sheet.record(u"ing", entry);
        sheet.keep(16);
        sheet.at(sheet.left() + 90, cells.amount, 11, false, true);
        sheet.box({sheet.left(), sheet.y() - 2, 380, 19});
        sheet.paragraph(cells.rest, {.size = 11, .bold = entry.endsWith(u':'), .indent = 104, .after = 0.4});
    }
    setHeading(sheet, words.directions, {.size = 14, .bold = true, .after = 0.5});
    setSteps(sheet, recipe.steps, {.size = 11, .indent = 18, .firstIndent = -18, .after = 0.5},
             QStringLiteral("%1.  "));
}

void setSidebarRight(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const Words& words = wordsOf(recipe.language);
    setTitle(sheet, recipe, {.size = 30, .after = 0.3});
    const double top = sheet.y();
    double left = sheet.left() + 8;
    for (const auto& [label, value] : factsOf(recipe)) {
        sheet.at(left, label.toUpper(), 7, false);
        sheet.turnTo(sheet.page(), top + 11);
        sheet.at(left, value, 11, true);
        sheet.turnTo(sheet.page(), top);
        left += 150;
    }
    sheet.box({sheet.left(), top - 3, sheet.width(), 32});
    sheet.skip(42);
    const double split = sheet.width() * 0.62;
    sheet.sideBySide({{sheet.left(), split,
                       [&] {
                           setIntro(sheet, recipe, {.size = 10, .after = 1});
                           for (qsizetype i = 0; i < recipe.steps.size(); ++i) {
                               sheet.record(u"step", recipe.steps[i]);
                               sheet.keep(30);
                               sheet.at(sheet.left(), QString::number(i + 1), 15, true);
                               sheet.paragraph(recipe.steps[i], {.size = 10, .indent = 26, .after = 1});
                           }
                       }},
                      {sheet.left() + split + 26, sheet.width() - split - 26, [&] {
                           setHeading(sheet, words.ingredients.toUpper(),
                                      {.size = 9, .bold = true, .after = 0.8});
                           setList(sheet, recipe.ingredients, {}, {.size = 9, .after = 0.45});
                       }}});
}

void setThreeColumns(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const Words& words = wordsOf(recipe.language);
    setTitle(sheet, recipe, {.size = 36, .bold = true, .after = 0.4});
    const double width = (sheet.width() - 36) / 3;
    const double left = sheet.left();
    const qsizetype middle = half(recipe.steps);
    const Style text{.size = 8.5, .after = 0.2, .mayJustify = true};
    sheet.sideBySide(
        {{left, width,
          [&] {
              if (!recipe.intro.isEmpty()) {
                  sheet.record(u"intro", recipe.intro);
                  setDropCap(sheet, recipe.intro, 8.5);
              }
              for (const auto& [label, value] : factsOf(recipe)) {
                  sheet.paragraph(label + u' ' + value, {.size = 8.5, .bold = true, .after = 0.2});
              }
              setHeading(sheet, words.ingredients.toUpper(), {.size = 9, .bold = true, .after = 0.4});
              setList(sheet, recipe.ingredients, {}, {.size = 8.5, .after = 0.2});
          }},
         {left + width + 18, width,
          [&] {
              setHeading(sheet, words.directions.toUpper(), {.size = 9, .bold = true, .after = 0.4});
              setSteps(sheet, recipe.steps.first(middle), text, QStringLiteral("%1 "));
          }},
         {left + 2 * (width + 18), width,
          [&] { setSteps(sheet, recipe.steps.mid(middle), text, QStringLiteral("%1 "), middle + 1); }}});
}

void setColumnsBelowIntro(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const Words& words = wordsOf(recipe.language);
    setTitle(sheet, recipe, {.size = 17, .bold = true, .after = 0.4});
    setIntro(sheet, recipe, {.size = 10, .after = 0.6, .mayJustify = true});
    for (const auto& [label, value] : factsOf(recipe)) {
        sheet.paragraph(label + QStringLiteral(": ") + value, {.size = 10});
    }
    const double width = (sheet.width() - 24) / 2;
    const double left = sheet.left();
    const auto twice = [&](qsizetype count, const auto& fill) {
        sheet.sideBySide(
            {{left, width, [&] { fill(0, count); }}, {left + width + 24, width, [&] { fill(count, -1); }}});
    };
    setHeading(sheet, words.ingredients, {.size = 13, .bold = true, .after = 0.5});
    twice(half(recipe.ingredients), [&](qsizetype from, qsizetype count) {
        setList(sheet, recipe.ingredients.mid(from, count), QStringLiteral("• "), {.size = 10, .after = 0.2});
    });
    setHeading(sheet, words.directions, {.size = 13, .bold = true, .after = 0.5});
    twice(half(recipe.steps), [&](qsizetype from, qsizetype count) {
        setSteps(sheet, recipe.steps.mid(from, count),
                 {.size = 10, .indent = 14, .firstIndent = -14, .after = 0.4, .mayJustify = true},
                 QStringLiteral("%1. "), from + 1);
    });
    sheet.turnTo(sheet.page(), sheet.style().page.height() - 50);
    sheet.at(sheet.style().page.width() / 2, QStringLiteral("17"), 9, false);
}

void setAllCapitals(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const Words& words = wordsOf(recipe.language);
    sheet.record(u"title", recipe.title);
    sheet.paragraph(recipe.title.toUpper(), {.size = 11, .after = 0.3, .centred = true});
    if (!recipe.author.isEmpty()) {
        sheet.paragraph(QStringLiteral("FROM THE KITCHEN OF ") + recipe.author.toUpper(),
                        {.size = 9, .after = 1, .centred = true});
    }
    setHeading(sheet, words.ingredients.toUpper(), {.size = 10, .after = 0.4});
    for (const QString& entry : recipe.ingredients) {
        sheet.record(u"ing", entry);
        sheet.paragraph(entry.toUpper(), {.size = 10, .indent = 20, .firstIndent = -20, .after = 0.1});
    }
    setHeading(sheet, words.directions.toUpper(), {.size = 10, .after = 0.4});
    for (const QString& step : recipe.steps) {
        sheet.record(u"step", step);
        sheet.paragraph(step.toUpper(), {.size = 10, .after = 0.5});
    }
    if (!recipe.yield.isEmpty()) {
        sheet.paragraph(words.serves.arg(recipe.yield).toUpper(), {.size = 10});
    }
}

void setCentred(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const Words& words = wordsOf(recipe.language);
    const Style middle{.size = 10, .after = 0.25, .centred = true};
    setTitle(sheet, recipe, {.size = 20, .after = 0.8, .centred = true});
    if (!recipe.yield.isEmpty()) {
        sheet.paragraph(words.serves.arg(recipe.yield), middle);
    }
    sheet.paragraph(QStringLiteral("~"), middle);
    setList(sheet, recipe.ingredients, {}, middle);
    sheet.paragraph(QStringLiteral("~"), middle);
    setSteps(sheet, recipe.steps, {.size = 10, .firstIndent = 14, .mayJustify = true});
    setIntro(sheet, recipe, {.size = 8.5, .indent = 30, .after = 0.4});
}

void setLetterSpaced(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const Words& words = wordsOf(recipe.language);
    sheet.record(u"title", recipe.title);
    sheet.paragraph(recipe.title.toUpper(), {.size = 19, .after = 0.8, .tracking = 0.22});
    QStringList facts;
    for (const auto& [label, value] : factsOf(recipe)) {
        facts.append(label.toUpper() + QStringLiteral("  ") + value);
    }
    sheet.paragraph(facts.join(QStringLiteral("   |   ")), {.size = 8, .after = 1.4});
    setIntro(sheet, recipe, {.size = 10.5, .after = 0.8});
    const auto heading = [&](const QString& text) {
        sheet.skip(8);
        sheet.keep(40);
        sheet.record(u"head", text);
        sheet.paragraph(text.toUpper(), {.size = 10, .bold = true, .after = 0.8, .tracking = 0.4});
    };
    heading(words.ingredients);
    setList(sheet, recipe.ingredients, {}, {.size = 10.5, .after = 0.35});
    heading(words.directions);
    setSteps(sheet, recipe.steps, {.size = 10.5, .after = 0.8});
}

void setSpokenHeadings(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const auto [list, method] = spokenHeadings(recipe);
    setTitle(sheet, recipe, {.size = 24, .bold = true, .after = 0.4});
    setIntro(sheet, recipe, {.size = 11, .after = 0.6});
    setHeading(sheet, list, {.size = 13, .bold = true, .after = 0.4});
    setList(sheet, recipe.ingredients, QStringLiteral("– "), {.size = 11, .after = 0.2});
    setHeading(sheet, method, {.size = 13, .bold = true, .after = 0.4});
    for (qsizetype i = 0; i < recipe.steps.size(); ++i) {
        // Twenty numbers have a circle of their own.
        const QString number = i < 20 ? QString(QChar(u'①' + static_cast<int>(i))) : QString::number(i + 1);
        sheet.record(u"step", recipe.steps[i]);
        sheet.paragraph(number + u' ' + recipe.steps[i],
                        {.size = 11, .indent = 17, .firstIndent = -17, .after = 0.5});
    }
}

void setBoxedNote(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const Words& words = wordsOf(recipe.language);
    setTitle(sheet, recipe, {.size = 18, .bold = true, .after = 0.4});
    setIntro(sheet, recipe, {.size = 9.5, .after = 0.6, .mayJustify = true});
    setHeading(sheet, words.ingredients, {.size = 11, .bold = true, .after = 0.4});
    setList(sheet, recipe.ingredients, {}, {.size = 9.5, .after = 0.15});
    const QStringList notes =
        recipe.notes.isEmpty() ? QStringList{QStringLiteral("Keeps for two days.")} : recipe.notes;
    sheet.skip(12);
    sheet.keep(90);
    const double top = sheet.y();
    sheet.paragraph(words.notes, {.size = 9.5, .bold = true, .indent = 10, .after = 0.2});
    for (const QString& note : notes) {
        sheet.paragraph(note, {.size = 9.5, .indent = 10});
    }
    sheet.box({sheet.left(), top - 4, sheet.width(), std::max(20.0, sheet.y() - top + 8)});
    sheet.skip(12);
    setHeading(sheet, words.directions, {.size = 11, .bold = true, .after = 0.4});
    setSteps(sheet, recipe.steps, {.size = 9.5, .after = 0.4, .mayJustify = true}, QStringLiteral("%1. "));
    for (int page = 0; page < sheet.pageCount(); ++page) {
        const bool odd = page % 2 == 1;
        const double right = sheet.style().page.width() - sheet.style().margin;
        sheet.turnTo(page, 22);
        sheet.at(sheet.style().margin, odd ? QStringLiteral("BREAD, CAKES AND MORE") : QStringLiteral("112"),
                 8, false);
        sheet.at(right, odd ? QStringLiteral("113") : QStringLiteral("The Little Kitchen Book"), 8, false,
                 true);
    }
}

void setSeveral(Sheet& sheet, const Recipe& recipe, const Recipe* next)
{
    const auto one = [&](const Recipe& shown) {
        const Words& words = wordsOf(shown.language);
        sheet.paragraph(shown.title, {.size = 14, .bold = true, .after = 0.3});
        if (!shown.yield.isEmpty()) {
            sheet.paragraph(words.yield + QStringLiteral(": ") + shown.yield, {.size = 9.5, .after = 0.4});
        }
        for (const QString& entry : shown.ingredients) {
            sheet.paragraph(entry, {.size = 9.5, .bold = entry.endsWith(u':'), .indent = 12});
        }
        sheet.skip(7);
        for (const QString& step : shown.steps) {
            sheet.paragraph(step, {.size = 9.5, .after = 0.3, .mayJustify = true});
        }
        sheet.skip(22);
    };
    sheet.record(u"title", recipe.title);
    for (const QString& entry : recipe.ingredients) {
        sheet.record(u"ing", entry);
    }
    for (const QString& step : recipe.steps) {
        sheet.record(u"step", step);
    }
    one(recipe);
    if (next != nullptr) {
        one(*next);
    }
}

void setPrintView(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const Words& words = wordsOf(recipe.language);
    setTitle(sheet, recipe, {.size = 22, .bold = true, .after = 0.2});
    sheet.paragraph(QStringLiteral("★★★★★ 4.8 from 112 votes"), {.size = 9, .after = 0.4});
    setIntro(sheet, recipe, {.size = 10.5, .after = 0.6});
    QStringList facts;
    for (const auto& [label, value] : factsOf(recipe)) {
        facts.append(label + QStringLiteral(": ") + value);
    }
    sheet.paragraph(facts.join(QStringLiteral("  |  ")), {.size = 10, .bold = true, .after = 0.3});
    if (!recipe.author.isEmpty()) {
        sheet.paragraph(QStringLiteral("Author: ") + recipe.author, {.size = 10, .after = 0.3});
    }
    setHeading(sheet, words.ingredients, {.size = 15, .bold = true, .after = 0.4});
    setList(sheet, recipe.ingredients, QStringLiteral("☐ "), {.size = 10.5, .after = 0.4});
    setHeading(sheet, words.directions, {.size = 15, .bold = true, .after = 0.4});
    for (qsizetype i = 0; i < recipe.steps.size(); ++i) {
        sheet.record(u"step", recipe.steps[i]);
        sheet.keep(32);
        sheet.circle({sheet.left() + 9, sheet.y() + 7}, 9);
        sheet.at(sheet.left() + 5.5, QString::number(i + 1), 10, true);
        sheet.paragraph(recipe.steps[i], {.size = 10.5, .indent = 28, .after = 0.8});
    }
    if (!recipe.notes.isEmpty()) {
        setHeading(sheet, words.notes, {.size = 15, .bold = true, .after = 0.4});
        for (const QString& note : recipe.notes) {
            sheet.paragraph(note, {.size = 10.5, .after = 0.3});
        }
    }
    setHeading(sheet, words.nutrition, {.size = 15, .bold = true, .after = 0.4});
    sheet.paragraph(QStringLiteral("Calories: 380kcal | Carbohydrates: 41g | Protein: 12g | Fat: 17g"),
                    {.size = 9});
    sheet.paragraph(QStringLiteral("Tried this recipe? Mention @oldmillkitchen and tag #oldmillkitchen"),
                    {.size = 9});
    const int pages = sheet.pageCount();
    for (int page = 0; page < pages; ++page) {
        sheet.turnTo(page, sheet.style().page.height() - 34);
        sheet.at(30, QStringLiteral("https://oldmill.example/wprm_print/1204"), 7, false);
        sheet.at(sheet.style().page.width() - 30,
                 QStringLiteral("11/02/2023, 18:41   %1/%2").arg(page + 1).arg(pages), 7, false, true);
    }
}

void setEbook(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const Words& words = wordsOf(recipe.language);
    sheet.paragraph(QStringLiteral("CHAPTER 4"), {.size = 9, .after = 0.5, .centred = true});
    setTitle(sheet, recipe, {.size = 17, .bold = true, .after = 0.8, .centred = true});
    setIntro(sheet, recipe, {.size = 10, .after = 0.8, .mayJustify = true});
    if (!recipe.yield.isEmpty()) {
        sheet.paragraph(words.serves.arg(recipe.yield).toUpper(), {.size = 9, .bold = true, .after = 0.6});
    }
    setList(sheet, recipe.ingredients, {}, {.size = 10});
    sheet.skip(10);
    for (qsizetype i = 0; i < recipe.steps.size(); ++i) {
        sheet.record(u"step", recipe.steps[i]);
        if (i == 0) {
            setDropCap(sheet, recipe.steps[i], 10);
        } else {
            sheet.paragraph(recipe.steps[i], {.size = 10, .firstIndent = 12, .mayJustify = true});
        }
    }
}

} // namespace

const QList<SetPage>& heldOutTwo()
{
    const QString serif = QStringLiteral("DejaVu Serif");
    const QString inter = QStringLiteral("Inter");
    const QSizeF letter{612, 792};
    static const QList<SetPage> all{
        {QStringLiteral("amount-table"), {}, setAmountTable},
        {QStringLiteral("sidebar-right"), {.page = letter, .margin = 44, .family = inter}, setSidebarRight},
        {QStringLiteral("three-columns"),
         {.page = letter,
          .margin = 34,
          .family = serif,
          .leading = 1.25,
          .justified = true,
          .hyphenated = true},
         setThreeColumns},
        {QStringLiteral("columns-below-intro"),
         {.margin = 70, .family = serif, .leading = 1.25, .justified = true, .hyphenated = true},
         setColumnsBelowIntro},
        {QStringLiteral("all-capitals"),
         {.page = {500, 700}, .margin = 40, .family = QStringLiteral("DejaVu Sans Mono")},
         setAllCapitals},
        {QStringLiteral("centred"), {.page = {460, 640}, .margin = 56, .family = serif}, setCentred},
        {QStringLiteral("letter-spaced"), {.page = letter, .family = inter, .leading = 1.5}, setLetterSpaced},
        {QStringLiteral("spoken-headings"),
         {.family = QStringLiteral("DejaVu Sans Condensed")},
         setSpokenHeadings},
        {QStringLiteral("boxed-note"),
         {.page = {420, 595}, .margin = 48, .family = serif, .justified = true, .footRoom = 10},
         setBoxedNote},
        {QStringLiteral("several"),
         {.page = letter, .margin = 66, .family = serif, .leading = 1.3},
         setSeveral},
        {QStringLiteral("print-view"), {.page = letter, .margin = 54, .family = inter}, setPrintView},
        {QStringLiteral("ebook"),
         {.page = {432, 648}, .margin = 40, .family = serif, .justified = true},
         setEbook},
    };
    return all;
}

} // namespace ovrin::material
