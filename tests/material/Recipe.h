#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

namespace ovrin::material {

/// A recipe as it is to be set: plain texts, each entry on one line.
struct Recipe
{
    QString title;
    QString author;
    QString intro;
    QString yield;
    QString prepTime;
    QString cookTime;
    /// The heading of a group ends in a colon.
    QStringList ingredients;
    QStringList steps;
    QStringList notes;
    /// Language of the headings, a row of the word table.
    QString language = QStringLiteral("en");
};

/// Reads a recipe written in Markdown: front matter with "title" and "author", an introduction, bullets with
/// times and servings, then "## Ingredients" ("###" or "**" groups), "## Directions" and "## Notes". Nothing
/// when one of the lists is missing.
std::optional<Recipe> readMarkdown(const QString& text);

} // namespace ovrin::material
