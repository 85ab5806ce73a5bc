#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QUuid>

#include <optional>

namespace ovrin {

/// One numbered step of a recipe's method.
struct RecipeStep
{
    QUuid id = QUuid::createUuid();
    /// A heading such as a component's name; absent for plain steps.
    std::optional<QString> title;
    QStringList paragraphs;

    /// The paragraphs joined by one blank line: what the editor edits.
    QString text() const;
    /// Cuts `text` into paragraphs at blank lines; the lines of one paragraph are trimmed and joined by a
    /// space.
    void setText(const QString& text);

    bool operator==(const RecipeStep&) const = default;
};

} // namespace ovrin
