#pragma once

#include "model/RecipeStep.h"
#include "text/DirectionSegment.h"

#include <QtCore/QList>

#include <optional>

namespace ovrin {

/// The stops by which a recipe is walked while cooking, one a paragraph.
namespace CookMode {

struct Item
{
    /// Step and paragraph, both from 0: "0-0", "0-1", "1-0".
    QString id;
    /// From 1.
    int stepNumber = 1;
    std::optional<QString> stepTitle;
    bool isFirstInStep = false;
    QList<DirectionSegment> segments;

    /// The whole paragraph.
    QString text() const;

    bool operator==(const Item&) const = default;
};

/// An ingredient is marked at its first mention in all of the steps.
QList<Item> items(const QStringList& ingredients, const QList<RecipeStep>& steps);

/// Where the stop of that id stands; 0 when there is none or no such one.
qsizetype position(const QList<Item>& items, const QString& id);
/// The id of the stop `count` further on, or of the one at the end that is reached; `id` when there are no
/// stops.
QString moved(const QList<Item>& items, const QString& id, qsizetype count);

/// How wide the ingredient panel is in a window of this width; 0: there is no room for one beside the stops.
double panelWidth(double windowWidth);

} // namespace CookMode

} // namespace ovrin
