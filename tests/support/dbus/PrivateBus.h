#pragma once

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

namespace ovrin::testing {

/// A message bus of the test's own, which can be stopped and started again at the same address.
class PrivateBus
{
public:
    PrivateBus();
    ~PrivateBus();

    QString address() const;
    void start();
    void stop();

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
};

} // namespace ovrin::testing
