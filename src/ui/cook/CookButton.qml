import QtQuick
import QtQuick.Templates as T
import Ovrin

/* A round button on cook mode's veil; with a word beside its symbol, a pill. */
T.Button {
    id: control

    property string symbol
    property string hint

    implicitHeight: Theme.controlHeight + Theme.gap2
    implicitWidth: text === "" ? implicitHeight : Math.ceil(row.implicitWidth) + Theme.gap4 * 2
    font: Theme.controlStrong
    hoverEnabled: true
    focusPolicy: Qt.TabFocus
    opacity: enabled ? 1 : 0.35

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Accessible.role: Accessible.Button
    Accessible.name: text === "" ? hint : text
    Accessible.onPressAction: clicked()

    contentItem: Item {
        Row {
            id: row
            anchors.centerIn: parent
            spacing: Theme.gap2
            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                name: control.symbol
            }
            Text {
                visible: control.text !== ""
                anchors.verticalCenter: parent.verticalCenter
                text: control.text
                textFormat: Text.PlainText
                font: control.font
                color: Theme.text
                Accessible.ignored: true
            }
        }
    }
    background: Rectangle {
        radius: height / 2
        color: control.hovered || control.down ? Theme.cookRoundHover : Theme.cookRound
        FocusRing { around: parent.height / 2; shown: control.visualFocus }
    }
    ToolTip {
        text: control.hint
        shown: control.hovered && control.hint !== ""
    }
}
