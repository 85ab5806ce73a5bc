#pragma once

#include <QtCore/QString>

namespace ovrin::material {

/// What a page says around a recipe, in the recipe's language.
struct Words
{
    QString ingredients;
    QString directions;
    QString otherIngredients;
    QString otherDirections;
    QString notes;
    QString nutrition;
    QString prep;
    QString cook;
    QString yield;
    /// "Serves %1"
    QString serves;
    QString step;
};

const Words& wordsOf(const QString& language);

} // namespace ovrin::material
