#pragma once

#include <QtCore/QDeadlineTimer>
#include <QtCore/QProcess>
#include <QtCore/QTimer>
#include <QtNetwork/QLocalSocket>

namespace ovrin {

/// The way to the notifier: starts the program when it does not run, connects, and comes back when it is
/// lost.
class NotifierLink final : public QObject
{
    Q_OBJECT
public:
    /// `folder` exists and belongs to the user alone.
    NotifierLink(QString program, QString folder, QObject* parent = nullptr);
    ~NotifierLink() override;

    bool isOpen() const { return m_socket.state() == QLocalSocket::ConnectedState; }
    /// Opens the link, unless it is open or about to be. Emits `opened`.
    void open();
    /// Has a notifier run, without a link to it.
    void startNotifier();
    void send(const QByteArray& lines);

    /// Lets things happen until `isDone`, until `milliseconds` have passed, or until it seems hopeless. The
    /// event loop does not run.
    template<typename Condition>
    void waitUntil(Condition isDone, int milliseconds);

Q_SIGNALS:
    void opened();
    /// Not the wish of this side. Whoever still needs the link opens it again.
    void lost();
    void received(const QByteArray& line);

private:
    void onStarted(int exitCode, QProcess::ExitStatus status);
    void onReadyRead();
    void onFailure();
    bool waitForChange(int milliseconds);

    QString m_program;
    QString m_folder;
    QProcess m_process;
    QLocalSocket m_socket;
    QTimer m_pause;
    bool m_isWanted = false;
    int m_failures = 0;
};

template<typename Condition>
void NotifierLink::waitUntil(Condition isDone, int milliseconds)
{
    const QDeadlineTimer deadline(milliseconds);
    while (!isDone() && !deadline.hasExpired()) {
        if (!waitForChange(static_cast<int>(deadline.remainingTime())))
            return;
    }
}

} // namespace ovrin
