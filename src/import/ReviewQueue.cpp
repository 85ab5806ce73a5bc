#include "import/ReviewQueue.h"

namespace ovrin {

ReviewQueue::ReviewQueue(const QString& folder, Clock clock,
                         const std::function<QString(const RecipeDraft&)>& noticeOf)
    : m_folder(folder)
    , m_clock(std::move(clock))
{
    for (const QString& file : m_folder.files(DraftFolder::Order::ByName)) {
        if (auto draft = DraftFolder::read(file)) {
            const QString notice = noticeOf(*draft);
            m_items.append({*std::move(draft), notice, file});
        } else {
            m_folder.reject(file);
        }
    }
}

bool ReviewQueue::add(const RecipeDraft& draft, const QString& notice)
{
    const auto file = m_folder.add(draft, m_clock());
    m_items.append({draft, notice, file.value_or(QString())});
    return file.has_value();
}

void ReviewQueue::replaceFirst(const RecipeDraft& draft)
{
    Item& item = m_items.first();
    item.draft = draft;
    if (!item.file.isEmpty())
        DraftFolder::replace(item.file, draft);
}

ReviewQueue::Item ReviewQueue::takeFirst()
{
    return m_items.takeFirst();
}

} // namespace ovrin
