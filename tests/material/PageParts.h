#pragma once

#include "material/Recipe.h"
#include "material/Sheet.h"

#include <QtCore/QPair>

// What pages that are set by functions of their own have in common.

namespace ovrin::material {

using Style = Sheet::Style;

struct Entry
{
    QString amount;
    QString rest;
};

/// "250 g flour" as the two cells of a table.
Entry entryOf(const QString& ingredient);
/// Labels and values of what the recipe says about yield and times.
QList<QPair<QString, QString>> factsOf(const Recipe& recipe);
/// How many entries fill half of the room.
qsizetype half(const QStringList& entries);

// Each puts its text on the sheet and into the truth.
void setTitle(Sheet& sheet, const Recipe& recipe, const Style& style);
void setIntro(Sheet& sheet, const Recipe& recipe, const Style& style);
void setHeading(Sheet& sheet, const QString& text, const Style& style);
/// Groups are bold and without the mark.
void setList(Sheet& sheet, const QStringList& entries, const QString& mark, const Style& style);
/// `number` is a pattern with "%1" in front of each step.
void setSteps(Sheet& sheet, const QStringList& steps, const Style& style, const QString& number = {},
              qsizetype first = 1);

} // namespace ovrin::material
