#pragma once

#include "reader/Frame.h"

#include <QtCore/QFuture>
#include <QtCore/QObject>
#include <QtCore/QString>

#include <chrono>
#include <optional>
#include <stop_token>

namespace ovrin {

/// One of Ovrin's helper programs: beside the application's own programs, or where an installation puts
/// helpers. Empty when it is at neither place.
QString findHelper(const QString& applicationFolder, const QString& name);

/// Asks the document reader, one process for each request: a document that has taken one over has no way to
/// the answer for the next. A process ends with its answer, its time, its caller's interest, and this object;
/// the system ends it with the thread that started it. Belongs to one thread, as all its callers do.
class DocumentReader
{
public:
    struct Bounds
    {
        /// A larger answer is none.
        quint32 answerBytes;
        std::chrono::milliseconds time;
    };

    explicit DocumentReader(QString program);
    ~DocumentReader();
    DocumentReader(const DocumentReader&) = delete;
    DocumentReader& operator=(const DocumentReader&) = delete;

    /// The body of the answer; nothing for a plain no, and when the reader cannot be started, crashes, talks
    /// nonsense, takes too long, or `stop` is requested. The future always gets its one result, and no
    /// exception.
    QFuture<std::optional<QByteArray>> answer(const reader::Frame& request, Bounds bounds,
                                              std::stop_token stop);

private:
    QString m_program;
    /// Owns the conversations that are under way.
    QObject m_conversations;
};

} // namespace ovrin
