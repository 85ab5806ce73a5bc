#include "platform/notifications/DesktopNotificationCenter.h"

#include "helpers/notifier/Protocol.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QStandardPaths>

#include <algorithm>
#include <ctime>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace ovrin {

namespace {

/// The notifier's clock: nanoseconds since the machine started, spent in suspension included.
qint64 elapsedNow()
{
    timespec now = {};
    ::clock_gettime(CLOCK_BOOTTIME, &now);
    return now.tv_sec * 1'000'000'000LL + now.tv_nsec;
}

std::string_view view(const QByteArray& text)
{
    return {text.constData(), static_cast<std::size_t>(text.size())};
}

/// Of bounded length: a note is read at a glance, and the text may come from anywhere.
QByteArray noteText(const QString& text)
{
    constexpr qsizetype longest = 300;
    if (text.size() <= longest)
        return text.toUtf8();
    const qsizetype cut = text.at(longest - 2).isHighSurrogate() ? longest - 2 : longest - 1;
    return (text.left(cut) + u'…').toUtf8();
}

/// Empty where somebody else could look in.
QString privateFolder(const QString& path)
{
    QDir().mkpath(path);
    const QByteArray name = QFile::encodeName(path);
    struct stat information = {};
    const bool isOwn = ::lstat(name.constData(), &information) == 0 && S_ISDIR(information.st_mode) &&
                       information.st_uid == ::getuid();
    return isOwn && ::chmod(name.constData(), 0700) == 0 ? path : QString();
}

} // namespace

DesktopNotificationCenter::Surroundings DesktopNotificationCenter::surroundings(const QString& notifier)
{
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const bool hasRuntime = !runtime.isEmpty() && QFileInfo(runtime).isDir();
    QString bus = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    if (bus.isEmpty() && hasRuntime && QFileInfo::exists(runtime + QStringLiteral("/bus")))
        bus = QStringLiteral("unix:path=%1/bus").arg(runtime);
    const QString folder = hasRuntime ? runtime + QStringLiteral("/ovrin")
                                      : QStringLiteral("%1/ovrin-%2").arg(QDir::tempPath()).arg(::getuid());
    return {notifier, privateFolder(folder), bus};
}

DesktopNotificationCenter::DesktopNotificationCenter(const Surroundings& surroundings, QObject* parent)
    : UserNotificationCenter(parent)
    , m_busAddress(surroundings.folder.isEmpty() ? QByteArray() : surroundings.busAddress.toUtf8())
    , m_link(surroundings.notifier, surroundings.folder)
{
    connect(&m_link, &NotifierLink::opened, this, &DesktopNotificationCenter::onOpened);
    connect(&m_link, &NotifierLink::lost, this, &DesktopNotificationCenter::onLost);
    connect(&m_link, &NotifierLink::received, this, &DesktopNotificationCenter::onReceived);
    const QString journal =
        surroundings.folder + u'/' +
        QString::fromLatin1(notifier::journalName.data(), qsizetype(notifier::journalName.size()));
    if (!surroundings.folder.isEmpty() && QFileInfo::exists(journal))
        m_link.startNotifier();
}

DesktopNotificationCenter::~DesktopNotificationCenter()
{
    m_link.waitUntil([this] { return isAllTaken(); }, 1000);
    m_link.disconnect(this);
}

bool DesktopNotificationCenter::requestAuthorization()
{
    return !m_busAddress.isEmpty();
}

void DesktopNotificationCenter::add(const Request& request)
{
    const Presentation presented = presentation(request);
    const std::string flags = std::string(presented.banner ? "u" : "") + (presented.sound ? "s" : "");
    const qint64 end = elapsedNow() + request.seconds * 1'000'000'000LL;
    run(request.id, notifier::line({"at", view(request.id.toUtf8()), std::to_string(end), flags,
                                    view(noteText(request.title)), view(noteText(request.body))}));
}

void DesktopNotificationCenter::remove(const QString& id)
{
    // Without an errand its note was shown, and without a link no notifier knows of that note any more.
    if (m_errands.contains(id) || m_link.isOpen())
        run(id, notifier::line({"cancel", view(id.toUtf8())}));
}

void DesktopNotificationCenter::run(const QString& id, const std::string& line)
{
    m_errands.insert(id, {QByteArray::fromStdString(line)});
    if (m_link.isOpen())
        m_link.send(QByteArray::fromStdString(line));
    else
        m_link.open();
}

void DesktopNotificationCenter::onOpened()
{
    QByteArray lines = QByteArray::fromStdString(notifier::line(
        {"hello", view(m_busAddress), view(tr("Stop timer").toUtf8()), view(tr("Show recipe").toUtf8())}));
    for (Errand& errand : m_errands) {
        errand.isTaken = false;
        lines += errand.line;
    }
    m_link.send(lines);
}

void DesktopNotificationCenter::onLost()
{
    // It leaves of itself when nothing is left. Otherwise it was killed, and its successor must be told.
    if (!m_errands.isEmpty())
        m_link.open();
}

void DesktopNotificationCenter::onReceived(const QByteArray& line)
{
    const QByteArrayList fields = line.split('\t');
    const QString id = QString::fromUtf8(fields.value(1));
    const auto errand = m_errands.find(id);
    if (fields.first() == "taken" && errand != m_errands.end()) {
        errand->isTaken = true;
    } else if (fields.first() == "over" && errand != m_errands.end()) {
        m_errands.erase(errand);
    } else if (fields.first() == "chosen" && fields.value(2) == "stop") {
        Q_EMIT actionChosen(id, Action::StopTimer);
    } else if (fields.first() == "chosen" && fields.value(2) == "show") {
        Q_EMIT actionChosen(id, Action::ShowRecipe);
    }
    if (fields.first() != "chosen" && isAllTaken())
        Q_EMIT settled();
}

bool DesktopNotificationCenter::isAllTaken() const
{
    return std::all_of(m_errands.cbegin(), m_errands.cend(),
                       [](const Errand& errand) { return errand.isTaken; });
}

} // namespace ovrin
