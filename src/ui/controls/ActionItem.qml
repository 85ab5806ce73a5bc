import QtQuick
import QtQuick.Templates as T
import Ovrin

/* An entry of an ActionMenu. An entry that is not visible takes no room. */
T.MenuItem {
    id: control

    property string symbol
    property string shortcutText
    property bool destructive: false
    readonly property color ink: destructive ? Theme.destructive : Theme.text

    implicitHeight: visible ? Theme.controlHeight - 2 : 0
    implicitWidth: Math.ceil(row.implicitWidth + keys.implicitWidth) + Theme.gap3 * 2 + (shortcutText === "" ? 0 : Theme.gap7)
    height: implicitHeight
    font: Theme.input
    hoverEnabled: true
    opacity: enabled ? 1 : 0.45

    Accessible.role: Accessible.MenuItem
    Accessible.name: text
    Accessible.onPressAction: { triggered(); if (menu) menu.dismiss() }

    contentItem: Item {
        Row {
            id: row
            anchors.verticalCenter: parent.verticalCenter
            anchors.left: parent.left
            anchors.leftMargin: Theme.gap2
            spacing: Theme.gap3
            Symbol {
                visible: control.symbol !== "" || control.checkable
                opacity: control.checkable && !control.checked ? 0 : 1
                anchors.verticalCenter: parent.verticalCenter
                size: Math.round(Theme.symbolSize * 0.9)
                name: control.checkable ? "checkmark" : control.symbol
                color: control.destructive ? Theme.destructive : control.checkable ? Theme.accent : Theme.secondary
            }
            Text {
                anchors.verticalCenter: parent.verticalCenter
                text: control.text
                textFormat: Text.PlainText
                font: control.font
                color: control.ink
                Accessible.ignored: true
            }
        }
        Text {
            id: keys
            anchors.verticalCenter: parent.verticalCenter
            anchors.right: parent.right
            anchors.rightMargin: Theme.gap2
            text: control.shortcutText
            textFormat: Text.PlainText
            font: Theme.caption
            color: Theme.secondary
            Accessible.ignored: true
        }
    }
    background: Rectangle {
        radius: Theme.radiusControl
        color: control.highlighted || control.hovered ? Theme.hover : "transparent"
    }
}
