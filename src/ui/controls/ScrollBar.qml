import QtQuick
import QtQuick.Templates as T
import Ovrin

T.ScrollBar {
    id: bar

    implicitWidth: 12
    implicitHeight: 12
    padding: 3
    minimumSize: 0.06
    visible: size < 1
    Accessible.role: Accessible.ScrollBar
    Accessible.name: qsTr("Scroll bar")
    contentItem: Rectangle {
        implicitWidth: 6
        implicitHeight: 6
        radius: 3
        color: bar.pressed || bar.hovered ? Theme.secondary : Theme.line
        opacity: bar.active || bar.hovered ? 1 : 0
        Behavior on opacity { NumberAnimation { duration: Theme.calm } }
    }
}
