#pragma once

#include "import/DraftFolder.h"

#include <functional>

namespace ovrin {

/// The drafts that wait for a person's review, in the order in which they came. Each lies in a file of its
/// own until it is saved or discarded, so that neither five dropped links nor a crash loses one.
class ReviewQueue
{
public:
    struct Item
    {
        RecipeDraft draft;
        /// What is shown above the draft.
        QString notice;
        /// Where it is kept; empty when it could not be written and lives in memory alone.
        QString file;
    };

    /// Takes up what an earlier run left in `folder`; such drafts come with `noticeOf(draft)`.
    ReviewQueue(const QString& folder, Clock clock,
                const std::function<QString(const RecipeDraft&)>& noticeOf);

    bool isEmpty() const { return m_items.isEmpty(); }
    qsizetype size() const { return m_items.size(); }
    /// The draft to review now. The queue must not be empty.
    const Item& first() const { return m_items.first(); }

    /// Whether the draft is safe on the disk; it is in the queue in any case.
    bool add(const RecipeDraft& draft, const QString& notice);
    /// Replaces the first draft by what has been made of it so far.
    void replaceFirst(const RecipeDraft& draft);
    /// The first draft leaves the queue. Its file is the caller's to remove (DraftFolder::remove), at once or
    /// when what became of the draft is safe.
    Item takeFirst();

private:
    DraftFolder m_folder;
    Clock m_clock;
    QList<Item> m_items;
};

} // namespace ovrin
