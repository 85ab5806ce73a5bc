#include "platform/reader/DocumentReader.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QLoggingCategory>
#include <QtCore/QProcess>
#include <QtCore/QProcessEnvironment>
#include <QtCore/QPromise>
#include <QtCore/QTimer>

#include <functional>

Q_LOGGING_CATEGORY(readerLog, "ovrin.reader")

namespace ovrin {

namespace {

using Answer = std::optional<QByteArray>;

/// What a reader may add to the log: enough to say what is missing, too little to fill a disk.
constexpr qsizetype maximumLogBytes = 4096;

/// One process and its request, until there is an answer or there can be none.
class Conversation : public QObject
{
public:
    Conversation(const reader::Frame& request, DocumentReader::Bounds bounds, std::stop_token stop,
                 QObject* parent)
        : QObject(parent)
        , m_kind(request.kind)
        , m_assembler(bounds.answerBytes)
        , m_request(reader::encoded(request))
        , m_stopped(std::move(stop), [this] { end(std::nullopt); })
    {
        m_promise.start();
        connect(&m_process, &QProcess::readyReadStandardOutput, this, [this] { receive(); });
        connect(&m_process, &QProcess::readyReadStandardError, this, [this] { log(); });
        connect(&m_process, &QProcess::finished, this, [this] { end(std::nullopt); });
        connect(&m_process, &QProcess::errorOccurred, this, [this] { end(std::nullopt); });
        m_timer.setSingleShot(true);
        connect(&m_timer, &QTimer::timeout, this, [this] { end(std::nullopt); });
        m_timer.start(bounds.time);
    }

    ~Conversation() override
    {
        end(std::nullopt);
        m_process.disconnect();
        // Killed already; this only collects it, so that no dead process is left behind.
        m_process.waitForFinished();
    }

    QFuture<Answer> future() { return m_promise.future(); }

    void start(const QString& program)
    {
        if (m_ended) {
            return;
        }
        QProcessEnvironment environment;
        environment.insert(QStringLiteral("LANG"), QStringLiteral("C.UTF-8"));
        m_process.setProcessEnvironment(environment);
        m_process.setWorkingDirectory(QDir::rootPath());
        m_process.start(program, {});
        m_process.write(m_request);
        m_process.closeWriteChannel();
        m_request.clear();
    }

private:
    void receive()
    {
        if (m_ended) {
            return;
        }
        const auto soFar = m_assembler.append(m_process.readAllStandardOutput());
        if (const auto frame = m_assembler.frame()) {
            end(frame->kind == m_kind ? Answer(frame->body) : std::nullopt);
        } else if (!soFar) {
            end(std::nullopt);
        }
    }

    void log()
    {
        const auto text = m_process.readAllStandardError().left(maximumLogBytes - m_logged);
        m_logged += text.size();
        if (!text.isEmpty()) {
            qCWarning(readerLog).noquote() << QString::fromUtf8(text).trimmed();
        }
    }

    /// Reached from every side, perhaps more than once; the first one counts.
    void end(const Answer& answer)
    {
        if (std::exchange(m_ended, true)) {
            return;
        }
        m_timer.stop();
        m_process.kill();
        m_promise.addResult(answer);
        m_promise.finish();
        deleteLater();
    }

    reader::MessageKind m_kind;
    reader::FrameAssembler m_assembler;
    QByteArray m_request;
    QProcess m_process;
    QTimer m_timer;
    QPromise<Answer> m_promise;
    qsizetype m_logged = 0;
    bool m_ended = false;
    // Last: the request may be stopped already, and its callback then runs at once, on what stands above.
    std::stop_callback<std::function<void()>> m_stopped;
};

} // namespace

QString findHelper(const QString& applicationFolder, const QString& name)
{
    for (const auto* folder : {".", OVRIN_LIBEXEC_FROM_BIN}) {
        const QDir place(applicationFolder + u'/' + QString::fromLatin1(folder));
        const QFileInfo program(place.filePath(name));
        if (program.isFile() && program.isExecutable()) {
            return program.canonicalFilePath();
        }
    }
    return {};
}

DocumentReader::DocumentReader(QString program)
    : m_program(std::move(program))
{
}

DocumentReader::~DocumentReader() = default;

QFuture<std::optional<QByteArray>> DocumentReader::answer(const reader::Frame& request, Bounds bounds,
                                                          std::stop_token stop)
{
    auto* conversation = new Conversation(request, bounds, std::move(stop), &m_conversations);
    auto future = conversation->future();
    conversation->start(m_program);
    return future;
}

} // namespace ovrin
