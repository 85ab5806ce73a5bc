#include "app/support/ScreenReader.h"

#include <QtCore/QUuid>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCall>

namespace ovrin::testing {

namespace {

const QString prefix = QStringLiteral("org.a11y.atspi.");
const QString accessible = prefix + QStringLiteral("Accessible");
const QString component = prefix + QStringLiteral("Component");

QDBusMessage call(const Accessible& node, const QString& interface, const QString& method,
                  const QVariantList& arguments = {})
{
    QDBusMessage message = QDBusMessage::createMethodCall(node.service, node.path, interface, method);
    message.setArguments(arguments);
    return message;
}

QDBusMessage getName(const Accessible& node)
{
    return call(node, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
                {accessible, QStringLiteral("Name")});
}

/// The objects of a reply of the type a(so).
QList<Accessible> objects(const QDBusMessage& reply)
{
    QList<Accessible> found;
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty())
        return found;
    const auto list = reply.arguments().constFirst().value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        Accessible node;
        QDBusObjectPath path;
        list.beginStructure();
        list >> node.service >> path;
        list.endStructure();
        node.path = path.path();
        found.append(node);
    }
    list.endArray();
    return found;
}

QStringList actions(const QDBusMessage& reply)
{
    QStringList found;
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty())
        return found;
    const auto list = reply.arguments().constFirst().value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        QString name, description, keys;
        list.beginStructure();
        list >> name >> description >> keys;
        list.endStructure();
        found.append(name);
    }
    list.endArray();
    return found;
}

/// Two words of bits.
quint64 states(const QDBusMessage& reply)
{
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty())
        return 0;
    const auto words = qdbus_cast<QList<uint>>(reply.arguments().constFirst());
    return words.value(0) | quint64(words.value(1)) << 32;
}

/// The questions about one object, all on their way at once.
struct Questions
{
    QDBusPendingCall name, role, interfaces, states, actions, children;
};

} // namespace

ScreenReader::ScreenReader(const QString& sessionBus)
    : m_name(QUuid::createUuid().toString())
{
    const QString session = m_name + QStringLiteral("-session");
    const QDBusMessage reply = QDBusConnection::connectToBus(sessionBus, session)
                                   .call(QDBusMessage::createMethodCall(
                                       QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
                                       QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress")));
    QDBusConnection::disconnectFromBus(session);
    if (reply.type() == QDBusMessage::ReplyMessage)
        m_bus = QDBusConnection::connectToBus(reply.arguments().value(0).toString(), m_name);
}

ScreenReader::~ScreenReader()
{
    QDBusConnection::disconnectFromBus(m_name);
}

QList<Accessible> ScreenReader::everything()
{
    Accessible registry;
    registry.service = prefix + QStringLiteral("Registry");
    registry.path = QStringLiteral("/org/a11y/atspi/accessible/root");
    QList<Accessible> found;
    QList<Accessible> layer = objects(m_bus.call(call(registry, accessible, QStringLiteral("GetChildren"))));
    // One layer of the tree at a time: a question at a time would take a hundred times as long.
    while (!layer.isEmpty()) {
        QList<Questions> asked;
        for (const Accessible& node : std::as_const(layer))
            asked.append(
                {m_bus.asyncCall(getName(node)),
                 m_bus.asyncCall(call(node, accessible, QStringLiteral("GetRoleName"))),
                 m_bus.asyncCall(call(node, accessible, QStringLiteral("GetInterfaces"))),
                 m_bus.asyncCall(call(node, accessible, QStringLiteral("GetState"))),
                 m_bus.asyncCall(call(node, prefix + QStringLiteral("Action"), QStringLiteral("GetActions"))),
                 m_bus.asyncCall(call(node, accessible, QStringLiteral("GetChildren")))});
        QList<Accessible> next;
        for (qsizetype i = 0; i < layer.size(); ++i) {
            for (QDBusPendingCall* answer : {&asked[i].name, &asked[i].role, &asked[i].interfaces,
                                             &asked[i].states, &asked[i].actions, &asked[i].children})
                answer->waitForFinished();
            Accessible node = layer.at(i);
            node.name =
                qdbus_cast<QDBusVariant>(asked[i].name.reply().arguments().value(0)).variant().toString();
            node.role = asked[i].role.reply().arguments().value(0).toString();
            node.states = states(asked[i].states.reply());
            node.actions = actions(asked[i].actions.reply());
            // What is hidden takes no place, a hidden window is not said to be showing. By its states alone,
            // what is only scrolled out of sight is the same as what is hidden.
            const bool isWindow = node.parent >= 0 && found.at(node.parent).parent < 0;
            if (node.parent >= 0 &&
                !(isWindow
                      ? node.is(Accessible::Showing)
                      : asked[i].interfaces.reply().arguments().value(0).toStringList().contains(component)))
                continue;
            for (Accessible child : objects(asked[i].children.reply())) {
                child.parent = found.size();
                next.append(child);
            }
            found.append(node);
        }
        layer = next;
    }
    return found;
}

bool ScreenReader::press(const Accessible& control)
{
    const auto index = int(control.actions.indexOf(QStringLiteral("Press")));
    return index >= 0 &&
           m_bus.call(call(control, prefix + QStringLiteral("Action"), QStringLiteral("DoAction"), {index}))
                   .type() == QDBusMessage::ReplyMessage;
}

bool ScreenReader::write(const Accessible& field, const QString& text)
{
    return m_bus
        .call(call(field, prefix + QStringLiteral("EditableText"), QStringLiteral("SetTextContents"), {text}))
        .arguments()
        .value(0)
        .toBool();
}

QString ScreenReader::text(const Accessible& field)
{
    return m_bus.call(call(field, prefix + QStringLiteral("Text"), QStringLiteral("GetText"), {0, -1}))
        .arguments()
        .value(0)
        .toString();
}

QString described(const QList<Accessible>& list)
{
    QStringList lines;
    const std::function<void(qsizetype, int)> describe = [&](qsizetype parent, int depth) {
        for (qsizetype i = 0; i < list.size(); ++i) {
            if (list.at(i).parent != parent)
                continue;
            const Accessible& node = list.at(i);
            lines.append(QStringLiteral("%1%2 “%3” %4 %5")
                             .arg(QString(depth * 2, u' '), node.role, node.name, node.actions.join(u','),
                                  node.is(Accessible::Focused)  ? QStringLiteral("focused")
                                  : node.is(Accessible::Active) ? QStringLiteral("active")
                                                                : QString()));
            describe(i, depth + 1);
        }
    };
    describe(-1, 0);
    return lines.join(u'\n');
}

} // namespace ovrin::testing
