#pragma once

#include <QtCore/QString>

#include <exception>
#include <optional>
#include <vector>

namespace ovrin {

/// The desktop's task lists, as far as a grocery list needs them. Its operations may block and are called
/// from a worker thread, one at a time; each may throw ReminderStoreError.
class ReminderStore
{
public:
    enum class SourceKind { CalDav, Local, Other };

    /// An account that can hold lists.
    struct Source
    {
        QString id;
        SourceKind kind = SourceKind::Other;
    };

    struct List
    {
        QString id;
        QString title;
    };

    struct Reminder
    {
        QString title;
        QString notes;
    };

    virtual ~ReminderStore() = default;

    /// Whether the user, or the system on his behalf, lets us at the lists at all.
    virtual bool requestAccess() = 0;
    virtual std::vector<List> lists() = 0;
    /// The account of the list that new reminders go to by default.
    virtual std::optional<Source> defaultSource() = 0;
    virtual std::vector<Source> sources() = 0;
    virtual List createList(const QString& title, const Source& source) = 0;
    /// Adds all of them, in order, in one go. When it throws, the error says how many were added all the
    /// same, or that nobody knows, unless there were none.
    virtual void add(const List& list, const std::vector<Reminder>& reminders) = 0;
};

/// What went wrong in a store, as a sentence for the user.
class ReminderStoreError : public std::exception
{
public:
    explicit ReminderStoreError(const QString& description)
        : m_description(description)
        , m_what(description.toUtf8())
    {
    }
    const QString& errorDescription() const { return m_description; }
    const char* what() const noexcept override { return m_what.constData(); }

private:
    QString m_description;
    QByteArray m_what;
};

/// The store was asked and is not ours to use, as in a sandbox.
class ReminderAccessDenied : public ReminderStoreError
{
public:
    using ReminderStoreError::ReminderStoreError;
};

} // namespace ovrin
