#include "browser/Chromium.h"

#include "support/Outcome.h"

#include <QtCore/QJsonDocument>

#include <csignal>
#include <fcntl.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <unistd.h>

namespace ovrin {

namespace {

/// Pipes of the protocol: messages end in a zero byte; the browser reads descriptor 3 and writes
/// descriptor 4.
constexpr int browserReads = 3;
constexpr int browserWrites = 4;

struct Pipe
{
    int from = -1;
    int to = -1;
    Pipe()
    {
        int ends[2];
        if (::pipe2(ends, O_CLOEXEC) != 0)
            throw std::runtime_error("no pipe");
        // Out of the way of the descriptors that the browser expects.
        from = ::fcntl(ends[0], F_DUPFD_CLOEXEC, 10);
        to = ::fcntl(ends[1], F_DUPFD_CLOEXEC, 10);
        ::close(ends[0]);
        ::close(ends[1]);
    }
};

/// The browser's answer to a call is an error.
struct Refused : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

QStringList arguments(const QString& profile)
{
    QStringList list = {QStringLiteral("--headless=new"),
                        QStringLiteral("--disable-gpu"),
                        QStringLiteral("--no-first-run"),
                        QStringLiteral("--remote-debugging-pipe"),
                        QStringLiteral("--enable-unsafe-extension-debugging"),
                        QStringLiteral("--disable-background-networking"),
                        QStringLiteral("--host-resolver-rules=MAP * ~NOTFOUND, EXCLUDE 127.0.0.1"),
                        QStringLiteral("--user-data-dir=") + profile};
    // Its own sandbox does not start for root, as whom continuous integration often runs.
    if (::geteuid() == 0)
        list << QStringLiteral("--no-sandbox");
    return list << QStringLiteral("about:blank");
}

} // namespace

Chromium::Chromium(const QString& profile, const QProcessEnvironment& environment)
{
    const Pipe calls;
    const Pipe answers;
    m_to = calls.to;
    m_from = answers.from;
    m_process.setProcessEnvironment(environment);
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.setChildProcessModifier([calls, answers] {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        ::dup2(calls.from, browserReads);
        ::dup2(answers.to, browserWrites);
    });
    m_process.start(QStringLiteral("chromium"), arguments(profile));
    const bool started = m_process.waitForStarted();
    ::close(calls.from);
    ::close(answers.to);
    if (!started)
        throw std::runtime_error("chromium does not start");
    m_notifier = std::make_unique<QSocketNotifier>(m_from, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, &m_process, [this] { receive(); });
    call(QStringLiteral("Browser.getVersion"));
}

Chromium::~Chromium()
{
    try {
        call(QStringLiteral("Browser.close"));
    } catch (const std::exception&) {
        m_process.kill();
    }
    if (!m_process.waitForFinished())
        m_process.kill();
    m_process.waitForFinished();
    m_notifier.reset();
    ::close(m_to);
    ::close(m_from);
}

void Chromium::receive()
{
    char bytes[65536];
    const auto count = ::read(m_from, bytes, sizeof bytes);
    if (count <= 0) {
        m_notifier->setEnabled(false);
        return;
    }
    m_received.append(bytes, count);
    for (qsizetype end = 0; (end = m_received.indexOf('\0')) >= 0;) {
        const QJsonObject message = QJsonDocument::fromJson(m_received.left(end)).object();
        m_received.remove(0, end + 1);
        if (message.contains(QLatin1String("id")))
            m_answers.insert(QString::number(message.value(QLatin1String("id")).toInt()), message);
    }
}

QJsonObject Chromium::call(const QString& method, const QJsonObject& parameters, const QString& session)
{
    QJsonObject message{{QStringLiteral("id"), ++m_lastCall},
                        {QStringLiteral("method"), method},
                        {QStringLiteral("params"), parameters}};
    if (!session.isEmpty())
        message.insert(QStringLiteral("sessionId"), session);
    const QByteArray bytes = QJsonDocument(message).toJson(QJsonDocument::Compact) + '\0';
    if (::write(m_to, bytes.constData(), size_t(bytes.size())) != bytes.size())
        throw std::runtime_error("chromium is gone");
    const QString id = QString::number(m_lastCall);
    if (!runUntil([&] { return m_answers.contains(id); }))
        throw std::runtime_error("chromium does not answer " + method.toStdString());
    const QJsonObject answer = m_answers.take(id).toObject();
    if (answer.contains(QLatin1String("error")))
        throw Refused(QJsonDocument(answer).toJson().toStdString());
    return answer.value(QLatin1String("result")).toObject();
}

QString Chromium::load(const QString& extensionFolder)
{
    return call(QStringLiteral("Extensions.loadUnpacked"), {{QStringLiteral("path"), extensionFolder}})
        .value(QLatin1String("id"))
        .toString();
}

void Chromium::open(const QUrl& url, const QString& condition)
{
    call(QStringLiteral("Target.createTarget"), {{QStringLiteral("url"), url.toString()}});
    m_front = url;
    waitFor(url.toString(), QStringLiteral("(%1) || null").arg(condition));
}

void Chromium::pressButton(const QString& extension)
{
    const QString tab = find(QStringLiteral("tab"), m_front.toString());
    call(QStringLiteral("Extensions.triggerAction"),
         {{QStringLiteral("id"), extension}, {QStringLiteral("targetId"), tab}});
}

QString Chromium::find(const QString& type, const QString& address)
{
    QString found;
    const auto isThere = [&] {
        const QJsonArray filter{QJsonObject{{QStringLiteral("type"), type}}};
        const QJsonObject answer =
            call(QStringLiteral("Target.getTargets"), {{QStringLiteral("filter"), filter}});
        for (const auto& target : answer.value(QLatin1String("targetInfos")).toArray()) {
            if (target[QLatin1String("url")].toString() == address)
                found = target[QLatin1String("targetId")].toString();
        }
        return !found.isEmpty();
    };
    if (!runUntil(isThere))
        throw std::runtime_error("never opened: " + address.toStdString());
    return found;
}

QJsonValue Chromium::waitFor(const QString& address, const QString& expression)
{
    const QJsonObject target{{QStringLiteral("targetId"), find(QStringLiteral("page"), address)},
                             {QStringLiteral("flatten"), true}};
    const QString session =
        call(QStringLiteral("Target.attachToTarget"), target).value(QLatin1String("sessionId")).toString();
    // The document may still be on its way, and what is asked of the empty one before it comes to nothing.
    const QString promise = QStringLiteral("new Promise((resolve) => setTimeout(() => resolve("
                                           "location.href === '%1' && document.body ? %2 : null), 20))")
                                .arg(address, expression);
    const QJsonObject evaluation{{QStringLiteral("expression"), promise},
                                 {QStringLiteral("awaitPromise"), true},
                                 {QStringLiteral("returnByValue"), true}};
    QJsonValue value;
    const auto isThere = [&] {
        try {
            const QJsonObject answer = call(QStringLiteral("Runtime.evaluate"), evaluation, session);
            value = answer.value(QLatin1String("result")).toObject().value(QLatin1String("value"));
        } catch (const Refused&) {
        }
        return !value.isNull() && !value.isUndefined();
    };
    if (!runUntil(isThere))
        throw std::runtime_error("never came true: " + expression.toStdString());
    return value;
}

} // namespace ovrin
