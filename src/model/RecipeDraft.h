#pragma once

#include "model/RecipeStep.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QUrl>

#include <optional>

namespace ovrin {

/// The editable, unsaved form of a recipe: what every importer makes and the editor edits. A plain value.
struct RecipeDraft
{
    QString title;
    QString author;
    QString publisher;
    QString summary;
    std::optional<QUrl> sourceURL;
    /// Address of a photo that is still to be fetched; never stored.
    std::optional<QUrl> imageURL;
    /// Encoded photo (JPEG, longer side at most 1600 pixels, once it has passed the document reader).
    std::optional<QByteArray> imageData;
    QString yield;
    std::optional<qint64> prepMinutes;
    std::optional<qint64> cookMinutes;
    std::optional<qint64> totalMinutes;
    QStringList ingredients;
    QList<RecipeStep> steps;

    /// A title, at least one ingredient and at least one step; nothing is trimmed.
    bool isComplete() const;

    /// This draft with its gaps filled from `base`; addresses and photo stay this draft's own.
    RecipeDraft merged(const RecipeDraft& base) const;

    /// JSON object with the fields' names as keys; absent optionals are left out, the photo is base64.
    QByteArray toJson() const;
    /// Nothing when a required key is missing or any value has the wrong type.
    static std::optional<RecipeDraft> fromJson(const QByteArray& json);

    bool operator==(const RecipeDraft&) const = default;
};

} // namespace ovrin
