#pragma once

#include "reader/Frame.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>

#include <algorithm>
#include <chrono>
#include <optional>

namespace ovrin {

/// The reader in its cage, asked again and again; started anew when a request has ended it, and from time to
/// time, since its limits hold for all of its life.
class WarmReader
{
public:
    /// `program` is `test-warm-reader`. An answer that takes longer than `time` ends the process.
    explicit WarmReader(QString program, std::chrono::milliseconds time = std::chrono::seconds(30))
        : m_program(std::move(program))
        , m_time(time)
    {
    }
    ~WarmReader() { stop(); }
    Q_DISABLE_COPY_MOVE(WarmReader)

    /// Nothing when the reader ended itself, or was ended for taking too long.
    std::optional<reader::Frame> ask(const reader::Frame& request, quint32 maximumAnswer)
    {
        if (m_process.state() == QProcess::NotRunning || ++m_asked % requestsPerProcess == 0) {
            stop();
            m_process.setStandardErrorFile(QProcess::nullDevice());
            m_process.start(m_program, {});
        }
        m_tookTooLong = false;
        QElapsedTimer timer;
        timer.start();
        const QDeadlineTimer deadline(m_time);
        m_process.write(reader::encoded(request));
        reader::FrameAssembler assembler(maximumAnswer);
        bool isSound = true;
        while (isSound && !assembler.frame()) {
            if (!m_process.waitForReadyRead(static_cast<int>(deadline.remainingTime()))) {
                m_tookTooLong = deadline.hasExpired();
                stop();
                ++m_ended;
                return std::nullopt;
            }
            isSound = assembler.append(m_process.readAllStandardOutput());
        }
        m_longest = std::max(m_longest, timer.elapsed());
        return assembler.frame();
    }

    /// How many requests have ended the process.
    int ended() const { return m_ended; }
    bool tookTooLong() const { return m_tookTooLong; }
    qint64 longestMilliseconds() const { return m_longest; }
    qint64 processId() const { return m_process.processId(); }

private:
    static constexpr int requestsPerProcess = 50;

    void stop()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    QString m_program;
    std::chrono::milliseconds m_time;
    QProcess m_process;
    int m_asked = 0;
    int m_ended = 0;
    bool m_tookTooLong = false;
    qint64 m_longest = 0;
};

} // namespace ovrin
