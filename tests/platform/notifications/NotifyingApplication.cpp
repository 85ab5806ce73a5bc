// notifying_application NOTIFIER FOLDER BUS BODY SECONDS quit|stay: asks for one note, then quits, or stays.

#include "cooking/NotificationPresenter.h"
#include "platform/notifications/DesktopNotificationCenter.h"

#include <QtCore/QCoreApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 7)
        return 2;
    const ovrin::NotificationPresenter presenter;
    ovrin::DesktopNotificationCenter center({arguments.at(1), arguments.at(2), arguments.at(3)});
    center.setDelegate(&presenter);
    center.add({.id = arguments.at(4),
                .title = QStringLiteral("Timer done"),
                .body = arguments.at(4),
                .seconds = arguments.at(5).toLongLong()});
    if (arguments.at(6) == QStringLiteral("quit"))
        return 0;
    QObject::connect(&center, &ovrin::DesktopNotificationCenter::settled, &application, [] {
        std::puts("settled");
        std::fflush(stdout);
    });
    return QCoreApplication::exec();
}
