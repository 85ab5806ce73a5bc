import QtQuick
import QtQuick.Templates as T
import Ovrin

T.MenuSeparator {
    implicitHeight: visible ? Theme.gap3 - 1 : 0
    height: implicitHeight
    implicitWidth: 100
    contentItem: Item {
        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.leftMargin: Theme.gap2
            anchors.rightMargin: Theme.gap2
            height: Theme.hairline
            color: Theme.line
        }
    }
    Accessible.role: Accessible.Separator
    Accessible.name: ""
}
