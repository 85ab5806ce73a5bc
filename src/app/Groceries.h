#pragma once

#include <QCoro/QCoroTask>

#include <QtCore/QStringList>

namespace ovrin {

/// Adds the lines to the desktop's grocery list, on a thread of its own, and gives the text to show: how many
/// there were, or why it could not be done.
QCoro::Task<QString> addToGroceries(QStringList lines, QString recipeTitle);

} // namespace ovrin
