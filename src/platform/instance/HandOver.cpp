#include "platform/instance/HandOver.h"

#include "platform/instance/LibraryName.h"

#include <QtDBus/QDBusMessage>

namespace ovrin {

namespace {

QStringList encoded(const QList<QUrl>& addresses)
{
    QStringList uris;
    for (const QUrl& address : addresses)
        uris.append(QString::fromLatin1(address.toEncoded()));
    return uris;
}

/// The calls of `org.freedesktop.Application` that make up a request: each member with its arguments.
QList<std::pair<QString, QVariantList>> callsFor(const StartRequest& request)
{
    const QVariantMap data = request.token.toPlatformData();
    QList<std::pair<QString, QVariantList>> calls;
    if (!request.addresses.isEmpty())
        calls.append({QStringLiteral("Open"), {encoded(request.addresses), data}});
    if (!request.action.isEmpty())
        calls.append({QStringLiteral("ActivateAction"), {request.action, QVariantList(), data}});
    if (calls.isEmpty())
        calls.append({QStringLiteral("Activate"), {data}});
    return calls;
}

} // namespace

HandOver handOver(const QDBusConnection& bus, const QString& name, const StartRequest& request,
                  std::chrono::milliseconds limit)
{
    if (!bus.isConnected())
        return HandOver::NobodyThere;
    for (const auto& [member, arguments] : callsFor(request)) {
        auto call = QDBusMessage::createMethodCall(name, applicationPath,
                                                   QStringLiteral("org.freedesktop.Application"), member);
        call.setArguments(arguments);
        call.setAutoStartService(false);
        const QDBusMessage answer = bus.call(call, QDBus::Block, int(limit.count()));
        if (answer.type() == QDBusMessage::ReplyMessage)
            continue;
        // Of a bus that is told not to start the service; QDBusError has no type for it.
        return answer.errorName() == QStringLiteral("org.freedesktop.DBus.Error.NameHasNoOwner")
                   ? HandOver::NobodyThere
                   : HandOver::NoAnswer;
    }
    return HandOver::Done;
}

} // namespace ovrin
