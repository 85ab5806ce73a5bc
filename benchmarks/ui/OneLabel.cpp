// The least that a Qt Quick program with a window can be, to measure the library window against.
#include <QtGui/QGuiApplication>
#include <QtQml/QQmlApplicationEngine>

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    QQmlApplicationEngine engine;
    engine.loadData("import QtQuick\n"
                    "Window { visible: true; width: 1180; height: 820; Text { text: 'label' } }");
    return QGuiApplication::exec();
}
