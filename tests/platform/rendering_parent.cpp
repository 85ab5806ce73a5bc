// Renders the page it is told to, only to be killed over it.
#include "platform/webkit/WebPageLoader.h"

#include <QtCore/QCoreApplication>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    ovrin::WebPageLoader loader(arguments.at(1));
    QCoro::waitFor(loader.html(QUrl(arguments.at(2)), std::chrono::minutes(1), {}));
    return 0;
}
