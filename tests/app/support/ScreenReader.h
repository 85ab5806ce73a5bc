#pragma once

#include <QtCore/QStringList>
#include <QtDBus/QDBusConnection>

#include <functional>
#include <optional>

namespace ovrin::testing {

/// Something that a program tells assistive programs about, as it was when it was read.
struct Accessible
{
    /// AT-SPI's numbers of the states that are asked for here.
    enum State {
        Active = 1,
        Checked = 4,
        Editable = 7,
        Enabled = 8,
        Focusable = 11,
        Focused = 12,
        Showing = 25
    };

    QString service;
    QString path;
    /// Where its parent stands in the list it came in; -1 for the program itself.
    qsizetype parent = -1;
    QString name;
    /// In AT-SPI's words: "push button".
    QString role;
    QStringList actions;
    quint64 states = 0;

    bool is(State state) const { return (states >> state & 1) != 0; }
    bool canBePressed() const { return actions.contains(QStringLiteral("Press")); }
    /// Reached by keyboard or by press: what must say what it is.
    bool isControl() const { return canBePressed() || is(Focusable) || is(Editable); }
};

/// Reads and works a program as a screen reader does: through AT-SPI, whose protocol this speaks itself
/// (gitlab.gnome.org/GNOME/at-spi2-core, xml/).
class ScreenReader
{
public:
    /// `sessionBus` is the address of a session on which assistive technology is offered.
    explicit ScreenReader(const QString& sessionBus);
    ~ScreenReader();

    /// Whether there is such a bus; nothing else works before.
    bool isReady() const { return m_bus.isConnected(); }
    /// Everything of every program that is to be seen, scrolled out of sight or not; parents before children.
    QList<Accessible> everything();
    bool press(const Accessible& control);
    /// Replaces the text of a field.
    bool write(const Accessible& field, const QString& text);
    QString text(const Accessible& field);

private:
    QString m_name;
    QDBusConnection m_bus{QString()};
};

/// `list` as lines for a person, each deeper than its parent.
QString described(const QList<Accessible>& list);

} // namespace ovrin::testing
