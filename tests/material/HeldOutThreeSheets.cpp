#include "material/HeldOutThree.h"
#include "material/PageParts.h"
#include "material/Words.h"

#include <QtCore/QHash>

#include <cmath>

namespace ovrin::material {

namespace {

/// What readers write below a page, which names amounts too: the heading and a remark.
std::pair<QString, QString> remarks(const QString& language)
{
    static const QHash<QString, QString> words{
        {QStringLiteral("en"), QStringLiteral("Comments|I took 2 eggs more and it was delicious!")},
        {QStringLiteral("de"), QStringLiteral("Kommentare|Ich habe 2 Eier mehr genommen, sehr lecker!")},
        {QStringLiteral("fr"), QStringLiteral("Commentaires|J’ai mis 2 œufs de plus, un régal !")},
        {QStringLiteral("es"), QStringLiteral("Comentarios|Le puse 2 huevos más, ¡riquísimo!")},
        {QStringLiteral("it"), QStringLiteral("Commenti|Ho messo 2 uova in più, buonissimo!")},
        {QStringLiteral("nl"), QStringLiteral("Reacties|Ik heb er 2 eieren meer in gedaan, heerlijk!")},
        {QStringLiteral("pt"), QStringLiteral("Comentários|Usei 2 ovos a mais, ficou uma delícia!")},
        {QStringLiteral("pl"), QStringLiteral("Komentarze|Dałam o 2 jajka więcej, pyszne!")},
        {QStringLiteral("sv"), QStringLiteral("Kommentarer|Jag tog 2 ägg mer, jättegott!")},
        {QStringLiteral("da"), QStringLiteral("Kommentarer|Jeg brugte 2 æg mere, det smagte dejligt!")},
    };
    const QString found = words.value(language, words.value(QStringLiteral("en")));
    return {found.section(u'|', 0, 0), found.section(u'|', 1)};
}

/// A card out of a box of groceries: the list at the left, a picture above each step, row after row.
void setKitTiles(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    constexpr qsizetype inRow = 3;
    constexpr double gap = 16;
    constexpr double picture = 62;
    constexpr double size = 8.5;
    const Words& words = wordsOf(recipe.language);
    setTitle(sheet, recipe, {.size = 22, .bold = true, .after = 0.2});
    QStringList facts;
    for (const auto& [label, value] : factsOf(recipe)) {
        facts.append(label + u' ' + value);
    }
    sheet.paragraph(facts.join(QStringLiteral("  |  ")), {.size = 9, .after = 1.2});
    const double left = sheet.left();
    const double list = 170;
    const double tile = (sheet.width() - list - inRow * gap) / inRow;
    const auto setTile = [&](qsizetype index) {
        sheet.record(u"step", recipe.steps[index]);
        sheet.box({sheet.left(), sheet.y(), tile, picture});
        sheet.skip(picture + 5);
        sheet.at(sheet.left(), QString::number(index + 1), 13, true);
        sheet.skip(4);
        sheet.paragraph(recipe.steps[index], {.size = size, .indent = 22});
    };
    const auto setRows = [&] {
        for (qsizetype first = 0; first < recipe.steps.size(); first += inRow) {
            const QStringList row = recipe.steps.mid(first, inRow);
            qsizetype longest = 0;
            QList<Sheet::Column> columns;
            for (qsizetype i = 0; i < row.size(); ++i) {
                longest = std::max(longest, row[i].size());
                columns.append({left + list + gap + static_cast<double>(i) * (tile + gap), tile,
                                [&setTile, index = first + i] { setTile(index); }});
            }
            const double lines = std::ceil(static_cast<double>(longest) * size * 0.58 / (tile - 22)) + 1;
            sheet.keep(picture + 12 + lines * size * sheet.style().leading);
            sheet.sideBySide(columns);
            sheet.skip(14);
        }
    };
    sheet.sideBySide({{left, list - 10,
                       [&] {
                           setHeading(sheet, words.ingredients, {.size = 11, .bold = true, .after = 0.5});
                           setList(sheet, recipe.ingredients, {}, {.size = size, .after = 0.35});
                       }},
                      {left + list + gap, sheet.width() - list - gap, setRows}});
}

/// What hangs in a restaurant's kitchen: a ruled table of quantity, unit and name.
void setSpecSheet(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const Words& words = wordsOf(recipe.language);
    const double left = sheet.left();
    const double width = sheet.width();
    sheet.at(left + width, QStringLiteral("No. 0412 / Rev. 3"), 8, false, true);
    sheet.paragraph(QStringLiteral("KITCHEN STANDARD"), {.size = 8, .after = 1});
    setTitle(sheet, recipe, {.size = 17, .bold = true, .after = 0.5});
    for (const auto& [label, value] : factsOf(recipe)) {
        sheet.at(left + 130, value, 9.5, true);
        sheet.paragraph(label, {.size = 9.5, .after = 0.2});
    }
    setHeading(sheet, words.ingredients, {.size = 11, .bold = true, .after = 0.6});
    for (const QString& entry : recipe.ingredients) {
        const Entry cells = entryOf(entry);
        sheet.record(u"ing", entry);
        sheet.keep(44);
        const double top = sheet.y();
        const auto unit = cells.amount.lastIndexOf(u' ');
        const bool hasUnit = unit > 0 && cells.amount.back().isLetter();
        sheet.at(left + 58, hasUnit ? cells.amount.first(unit) : cells.amount, 9.5, false, true);
        sheet.at(left + 72, hasUnit ? cells.amount.mid(unit + 1) : QString(), 9.5, false);
        sheet.paragraph(cells.rest, {.size = 9.5, .bold = entry.endsWith(u':'), .indent = 150});
        sheet.skip(5);
        const double height = sheet.y() - top;
        sheet.box({left, top - 2, 64, height});
        sheet.box({left + 64, top - 2, 80, height});
        sheet.box({left + 144, top - 2, width - 144, height});
    }
    sheet.skip(6);
    setHeading(sheet, words.directions, {.size = 11, .bold = true, .after = 0.5});
    for (qsizetype i = 0; i < recipe.steps.size(); ++i) {
        sheet.record(u"step", recipe.steps[i]);
        sheet.keep(16);
        sheet.at(left, QString::number(i + 1).rightJustified(2, u'0'), 9.5, true);
        sheet.paragraph(recipe.steps[i], {.size = 9.5, .indent = 26, .after = 0.5});
    }
    const int pages = sheet.pageCount();
    for (int page = 0; page < pages; ++page) {
        sheet.turnTo(page, sheet.style().page.height() - 40);
        sheet.at(left, QStringLiteral("Issued 04/2021"), 7.5, false);
        sheet.at(left + width, QStringLiteral("Page %1 of %2").arg(page + 1).arg(pages), 7.5, false, true);
    }
}

/// A sheet from an evening class: squares in front of the list, letters in front of the steps.
void setHandout(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const Words& words = wordsOf(recipe.language);
    sheet.at(sheet.left() + sheet.width(), QStringLiteral("14.03.2019"), 9, false, true);
    sheet.paragraph(QStringLiteral("Evening class, sheet 4"), {.size = 9, .after = 1.5});
    setTitle(sheet, recipe, {.size = 16, .bold = true, .after = 0.8, .centred = true});
    for (const auto& [label, value] : factsOf(recipe)) {
        sheet.paragraph(label + QStringLiteral(": ") + value, {.size = 11});
    }
    setHeading(sheet, words.otherIngredients + u':', {.size = 12, .bold = true, .after = 0.4});
    setList(sheet, recipe.ingredients, QStringLiteral("▪ "), {.size = 11, .after = 0.1});
    setHeading(sheet, words.otherDirections + u':', {.size = 12, .bold = true, .after = 0.4});
    for (qsizetype i = 0; i < recipe.steps.size(); ++i) {
        const QString letter = i < 26 ? QString(QChar(u'a' + static_cast<int>(i))) : QString::number(i + 1);
        sheet.record(u"step", recipe.steps[i]);
        sheet.keep(18);
        sheet.at(sheet.left() + 4, letter + u')', 11, false);
        sheet.paragraph(recipe.steps[i], {.size = 11, .indent = 24, .after = 0.3});
    }
}

/// A picture of a telephone that shows somebody's notes: no headings, no numbers.
void setPhoneNotes(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const double right = sheet.left() + sheet.width();
    sheet.skip(sheet.style().headRoom);
    sheet.paragraph(QStringLiteral("12.03.2024, 18:55"), {.size = 11, .after = 0.8, .centred = true});
    setTitle(sheet, recipe, {.size = 24, .bold = true, .after = 0.5});
    setList(sheet, recipe.ingredients, QStringLiteral("– "), {.size = 15});
    sheet.skip(20);
    setSteps(sheet, recipe.steps, {.size = 15, .after = 1});
    const int pages = sheet.pageCount();
    for (int page = 0; page < pages; ++page) {
        sheet.turnTo(page, 12);
        sheet.at(sheet.left(), QStringLiteral("19:%1").arg(10 + page), 12, true);
        sheet.at(right, QStringLiteral("5G  64%"), 12, true, true);
        sheet.turnTo(page, 36);
        sheet.at(sheet.left(), QStringLiteral("‹"), 16, false);
        sheet.at(right, QStringLiteral("…"), 16, true, true);
    }
}

/// What a program for recipes prints: labels in a column of their own, what they speak of beside them.
void setExport(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    constexpr double size = 9.5;
    const Words& words = wordsOf(recipe.language);
    setTitle(sheet, recipe, {.size = 20, .after = 0.8});
    const double labels = 128;
    const double left = sheet.left();
    const double width = sheet.width() - labels - 14;
    const auto row = [&](const QString& label, const std::function<void()>& fill) {
        sheet.keep(40);
        sheet.sideBySide({{left + labels + 14, width, [&] {
                               sheet.at(left + labels, label, size, true, true);
                               fill();
                           }}});
        sheet.skip(8);
    };
    for (const auto& [label, value] : factsOf(recipe)) {
        row(label, [&sheet, text = value] { sheet.paragraph(text, {.size = size}); });
    }
    row(words.ingredients, [&] { setList(sheet, recipe.ingredients, {}, {.size = size, .after = 0.15}); });
    row(words.directions, [&] { setSteps(sheet, recipe.steps, {.size = size, .after = 0.7}); });
    if (!recipe.notes.isEmpty()) {
        row(words.notes, [&] { sheet.paragraph(recipe.notes.join(u' '), {.size = size}); });
    }
    row(words.nutrition,
        [&] { sheet.paragraph(QStringLiteral("391 kcal, 14 g, 16 g, 45 g"), {.size = size}); });
}

/// A page with its story above the recipe and what readers say below it.
void setWithRemarks(Sheet& sheet, const Recipe& recipe, const Recipe*)
{
    const Words& words = wordsOf(recipe.language);
    const auto [heading, remark] = remarks(recipe.language);
    setTitle(sheet, recipe, {.size = 27, .bold = true, .after = 0.2});
    sheet.paragraph(QStringLiteral("14.09.2022  |  3 ") + heading, {.size = 9, .after = 1});
    setIntro(sheet, recipe, {.size = 11.5, .after = 1});
    sheet.box({sheet.left(), sheet.y(), sheet.width(), 150});
    sheet.skip(170);
    sheet.paragraph(recipe.title, {.size = 15, .bold = true, .after = 0.5});
    for (const auto& [label, value] : factsOf(recipe)) {
        sheet.paragraph(label + u' ' + value, {.size = 10});
    }
    setHeading(sheet, words.ingredients, {.size = 12.5, .bold = true, .after = 0.5});
    setList(sheet, recipe.ingredients, QStringLiteral("• "), {.size = 10.5, .after = 0.25});
    setHeading(sheet, words.directions, {.size = 12.5, .bold = true, .after = 0.5});
    setSteps(sheet, recipe.steps, {.size = 10.5, .indent = 18, .firstIndent = -18, .after = 0.6},
             QStringLiteral("%1. "));
    sheet.skip(14);
    sheet.keep(110);
    sheet.paragraph(QStringLiteral("3 ") + heading, {.size = 16, .bold = true, .after = 0.6});
    const QStringList readers{QStringLiteral("Anna K."), QStringLiteral("Marco"), QStringLiteral("elin_87")};
    for (const QString& reader : readers) {
        sheet.keep(40);
        sheet.paragraph(reader + QStringLiteral("  16.09.2022"), {.size = 9, .bold = true, .after = 0.1});
        sheet.paragraph(reader == readers.first() ? remark : QStringLiteral("★★★★★"),
                        {.size = 10, .after = 0.8});
    }
}

} // namespace

QList<SetPage> heldOutThreeSheets()
{
    const QString inter = QStringLiteral("Inter");
    const QSizeF letter{612, 792};
    return {
        {QStringLiteral("kit-tiles"), {.page = {842, 595}, .margin = 34, .family = inter}, setKitTiles},
        {QStringLiteral("spec-sheet"), {.page = letter, .margin = 54, .family = inter}, setSpecSheet},
        {QStringLiteral("handout"),
         {.margin = 72, .family = QStringLiteral("DejaVu Sans Condensed"), .leading = 1.25},
         setHandout},
        {QStringLiteral("phone-notes"),
         {.page = {390, 844}, .margin = 22, .family = inter, .headRoom = 44},
         setPhoneNotes},
        {QStringLiteral("export"), {.page = letter, .margin = 48, .family = inter}, setExport},
        {QStringLiteral("with-remarks"),
         {.page = letter, .margin = 70, .family = QStringLiteral("DejaVu Serif")},
         setWithRemarks},
    };
}

} // namespace ovrin::material
