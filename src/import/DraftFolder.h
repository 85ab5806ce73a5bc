#pragma once

#include "model/Instant.h"
#include "model/RecipeDraft.h"

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

namespace ovrin {

/// A folder of drafts, one JSON file each, written so that a crash or a power cut leaves a file whole or
/// absent. Both the inbox that companions fill and the queue of drafts that wait for review are such folders.
class DraftFolder
{
public:
    /// A file larger than this is no draft.
    static constexpr qint64 maximumBytes = qint64(128) << 20;

    explicit DraftFolder(QString path);

    const QString& path() const { return m_path; }

    enum class Order {
        /// Oldest file first, equally old ones by name: for files that others wrote.
        ByAge,
        /// As they were added, even when they were replaced since: for files that `add` named.
        ByName,
    };

    /// The paths of the drafts in it. An unreadable folder has none.
    QStringList files(Order order) const;
    /// The draft in `file`; nothing when it cannot be read or is none.
    static std::optional<RecipeDraft> read(const QString& file);
    /// Adds a draft (the folder is made when it is missing). Its path, or nothing when it could not be
    /// written.
    std::optional<QString> add(const RecipeDraft& draft, Instant now) const;
    /// Replaces what `file` holds, wholly or not at all.
    static bool replace(const QString& file, const RecipeDraft& draft);
    static bool remove(const QString& file);
    /// Moves a file that is no draft into the folder "Rejected" beside this one, where a person can look at
    /// it.
    void reject(const QString& file) const;

private:
    QString m_path;
};

} // namespace ovrin
