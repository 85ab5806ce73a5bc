#include "material/PageParts.h"

#include "material/Words.h"

#include <QtCore/QRegularExpression>

namespace ovrin::material {

Entry entryOf(const QString& ingredient)
{
    static const QRegularExpression amount(
        QStringLiteral("^((?:\\d[\\d/.,–-]*|[½¼¾⅓⅔])(?:\\s(?:\\d/\\d))?(?:\\s(?:g|kg|ml|cl|dl|l|EL|TL|oz|lb|"
                       "cups?|tbsp|tsp|tablespoons?|teaspoons?)\\b)?)\\s(.*)$"),
        QRegularExpression::UseUnicodePropertiesOption);
    const auto match = amount.match(ingredient);
    return match.hasMatch() ? Entry{match.captured(1), match.captured(2)} : Entry{{}, ingredient};
}

void setTitle(Sheet& sheet, const Recipe& recipe, const Style& style)
{
    sheet.record(u"title", recipe.title);
    sheet.paragraph(recipe.title, style);
}

void setIntro(Sheet& sheet, const Recipe& recipe, const Style& style)
{
    if (!recipe.intro.isEmpty()) {
        sheet.record(u"intro", recipe.intro);
        sheet.paragraph(recipe.intro, style);
    }
}

void setHeading(Sheet& sheet, const QString& text, const Style& style)
{
    sheet.skip(style.size * 0.5);
    sheet.keep(style.size * 4);
    sheet.record(u"head", text);
    sheet.paragraph(text, style);
}

void setList(Sheet& sheet, const QStringList& entries, const QString& mark, const Style& style)
{
    for (const QString& entry : entries) {
        const bool group = entry.endsWith(u':');
        Style own = style;
        own.bold = group;
        own.indent = group || style.centred ? 0 : style.size;
        own.firstIndent = -own.indent;
        sheet.record(u"ing", entry);
        sheet.paragraph(group ? entry : mark + entry, own);
    }
}

void setSteps(Sheet& sheet, const QStringList& steps, const Style& style, const QString& number,
              qsizetype first)
{
    for (qsizetype i = 0; i < steps.size(); ++i) {
        sheet.record(u"step", steps[i]);
        sheet.paragraph((number.isEmpty() ? QString() : number.arg(first + i)) + steps[i], style);
    }
}

qsizetype half(const QStringList& entries)
{
    qsizetype left = entries.join(QString()).size() / 2;
    qsizetype count = 0;
    while (count < entries.size() && left > 0) {
        left -= entries[count++].size();
    }
    return count;
}

QList<QPair<QString, QString>> factsOf(const Recipe& recipe)
{
    const Words& words = wordsOf(recipe.language);
    QList<QPair<QString, QString>> facts{
        {words.yield, recipe.yield}, {words.prep, recipe.prepTime}, {words.cook, recipe.cookTime}};
    facts.removeIf([](const auto& fact) { return fact.second.isEmpty(); });
    return facts;
}

} // namespace ovrin::material
