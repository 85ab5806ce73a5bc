import QtQuick
import QtQuick.Templates as T
import Ovrin

T.ItemDelegate {
    id: row

    property string symbol
    property bool isFolded: false

    implicitHeight: Theme.controlHeight
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    Accessible.role: Accessible.ListItem
    Accessible.name: text
    Accessible.selectable: true
    Accessible.selected: checked
    Accessible.onPressAction: clicked()

    contentItem: Item {
        Row {
            anchors.verticalCenter: parent.verticalCenter
            x: row.isFolded ? Math.round((parent.width - Theme.symbolSize) / 2)
                            : row.mirrored ? parent.width - width - Theme.gap2 - 2 : Theme.gap2 + 2
            spacing: Theme.gap2 + 2
            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                name: row.symbol
                color: row.checked ? Theme.accent : Theme.secondary
            }
            PlainText {
                visible: !row.isFolded
                anchors.verticalCenter: parent.verticalCenter
                text: row.text
                font: row.checked ? Theme.controlStrong : Theme.input
                wrapMode: Text.NoWrap
                Accessible.ignored: true
            }
        }
    }
    background: Rectangle {
        radius: Theme.radiusControl
        color: row.checked ? Theme.selection : row.hovered ? Theme.hover : "transparent"
        FocusRing { shown: row.visualFocus; gap: 0 }
    }
    ToolTip {
        text: row.text
        shown: row.isFolded && row.hovered
    }
}
