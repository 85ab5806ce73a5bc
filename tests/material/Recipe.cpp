#include "material/Recipe.h"

#include <QtCore/QRegularExpression>

namespace ovrin::material {

namespace {

QString plain(QString text)
{
    static const QRegularExpression image(QStringLiteral("!\\[[^\\]]*\\]\\([^)]*\\)"));
    static const QRegularExpression link(QStringLiteral("\\[([^\\]]*)\\]\\([^)]*\\)"));
    static const QRegularExpression mark(
        QStringLiteral("\\*\\*\\*|\\*\\*|\\*|`|(?<![\\p{L}\\d])_|_(?![\\p{L}\\d])|<[^>]*>"));
    text.remove(image).replace(link, QStringLiteral("\\1")).remove(mark);
    return text.simplified();
}

void readFact(const QString& item, Recipe& recipe)
{
    static const QRegularExpression fact(QStringLiteral("(prep time|cook time|servings):\\s*(.+)$"),
                                         QRegularExpression::CaseInsensitiveOption);
    const auto match = fact.match(item);
    const QString label = match.captured(1).toLower();
    QString& field = label == u"prep time"   ? recipe.prepTime
                     : label == u"cook time" ? recipe.cookTime
                                             : recipe.yield;
    if (match.hasMatch()) {
        field = match.captured(2).trimmed();
    }
}

} // namespace

std::optional<Recipe> readMarkdown(const QString& text)
{
    static const QRegularExpression entry(QStringLiteral("^\\s*(?:[-*+]|\\d+[.)])\\s+(.*)$"));
    Recipe recipe;
    QString section;
    bool inFrontMatter = false;
    for (const QString& line : text.split(u'\n')) {
        const auto item = entry.match(line);
        if (line.trimmed() == u"---") {
            inFrontMatter = !inFrontMatter;
        } else if (inFrontMatter) {
            const QString value = line.section(u':', 1).trimmed().remove(u'"');
            QString& field = line.startsWith(u"title") ? recipe.title : recipe.author;
            if (line.startsWith(u"title") || line.startsWith(u"author")) {
                field = value;
            } else if (line.startsWith(u"language")) {
                recipe.language = value;
            }
        } else if (line.startsWith(u"## ")) {
            section = line.mid(3).trimmed().toLower();
        } else if (line.startsWith(u"###") && section == u"ingredients") {
            recipe.ingredients.append(plain(line.section(u' ', 1)).remove(u':') + u':');
        } else if (plain(line).isEmpty()) {
            continue;
        } else if (section.isEmpty()) {
            if (item.hasMatch()) {
                readFact(line, recipe);
            } else if (!line.startsWith(u'#')) {
                recipe.intro += (recipe.intro.isEmpty() ? QString() : QStringLiteral(" ")) + plain(line);
            }
        } else if (section == u"ingredients" && item.hasMatch()) {
            recipe.ingredients.append(plain(item.captured(1)));
        } else if (section == u"directions" && item.hasMatch()) {
            recipe.steps.append(plain(item.captured(1)));
        } else if (section == u"directions" && !recipe.steps.isEmpty() && !line.startsWith(u'#')) {
            recipe.steps.last() += u' ' + plain(line);
        } else if (section == u"notes") {
            recipe.notes.append(plain(item.hasMatch() ? item.captured(1) : line));
        }
    }
    recipe.ingredients.removeAll(QString());
    recipe.steps.removeAll(QString());
    const bool whole = !recipe.title.isEmpty() && recipe.ingredients.size() > 1 && !recipe.steps.isEmpty();
    return whole ? std::optional(recipe) : std::nullopt;
}

} // namespace ovrin::material
