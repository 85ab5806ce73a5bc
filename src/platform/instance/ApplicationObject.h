#pragma once

#include <QtCore/QVariantMap>
#include <QtDBus/QDBusAbstractAdaptor>

namespace ovrin {

class RunningInstance;

/// The methods of `org.freedesktop.Application` as the bus calls them.
/// Source: freedesktop.org, Desktop Entry, "D-Bus Activation".
class ApplicationObject : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationObject(RunningInstance& instance);

public Q_SLOTS:
    // NOLINTBEGIN(readability-identifier-naming): the interface's own names.
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);
    void ActivateAction(const QString& name, const QVariantList& parameters, const QVariantMap& platformData);
    // NOLINTEND(readability-identifier-naming)

private:
    RunningInstance& m_instance;
};

} // namespace ovrin
