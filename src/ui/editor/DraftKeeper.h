#pragma once

#include "model/RecipeDraft.h"

#include <QtCore/QUuid>

namespace ovrin {

/// An edit that was not finished: what the editor showed, and of which recipe.
struct KeptDraft
{
    QString heading;
    QString notice;
    /// The recipe being edited; absent for a new one.
    std::optional<QUuid> recipe;
    RecipeDraft draft;

    bool operator==(const KeptDraft&) const = default;
};

/// Keeps the draft being edited in a file, so that it survives a crash. JSON: {"heading", "notice",
/// "recipe" (only of an edit), "draft" (see RecipeDraft::toJson)}.
class DraftKeeper
{
public:
    /// An empty path keeps nothing.
    explicit DraftKeeper(QString path)
        : m_path(std::move(path))
    {
    }

    /// Replaces the file as a whole or leaves it as it was. False when it could not be written.
    bool keep(const KeptDraft& draft) const;
    void forget() const;
    /// Nothing when there is no such file, or not one of ours.
    std::optional<KeptDraft> kept() const;

private:
    QString m_path;
};

} // namespace ovrin
