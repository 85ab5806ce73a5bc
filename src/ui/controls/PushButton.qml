import QtQuick
import QtQuick.Templates as T
import Ovrin

/* A button with a word, a symbol, or both. `kind` is "plain", "primary", "destructive" or "quiet". */
T.Button {
    id: control

    property string kind: "plain"
    property string symbol
    property string hint
    readonly property bool filled: kind === "primary" || kind === "destructive"
    readonly property color ink: kind === "primary" ? Theme.inkOnAccent
                               : kind === "destructive" ? Theme.inkOnDestructive : Theme.text

    implicitHeight: Theme.controlHeight
    implicitWidth: text === "" ? implicitHeight : Math.ceil(row.implicitWidth) + leftPadding + rightPadding
    leftPadding: text === "" ? 0 : Theme.gap3 + 1
    rightPadding: leftPadding
    font: Theme.control
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    opacity: enabled ? 1 : 0.5

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    Accessible.role: Accessible.Button
    Accessible.name: text === "" ? hint : text
    Accessible.description: text === "" ? "" : hint
    Accessible.onPressAction: clicked()

    contentItem: Item {
        implicitHeight: row.implicitHeight
        Row {
            id: row
            anchors.centerIn: parent
            spacing: Theme.gap2
            Symbol {
                visible: control.symbol !== ""
                anchors.verticalCenter: parent.verticalCenter
                name: control.symbol
                color: control.ink
            }
            Text {
                visible: control.text !== ""
                anchors.verticalCenter: parent.verticalCenter
                text: control.text
                textFormat: Text.PlainText
                font: control.font
                color: control.ink
                Accessible.ignored: true
            }
        }
    }

    background: Rectangle {
        radius: Theme.radiusControl
        border.width: control.filled || control.kind === "quiet" ? 0 : Theme.hairline
        border.color: Theme.line
        color: control.kind === "primary"
               ? (control.down ? Theme.accentPressed : control.hovered ? Theme.accentHover : Theme.accent)
               : control.kind === "destructive"
                 ? (control.hovered ? Theme.destructiveHover : Theme.destructive)
                 : control.down ? Theme.pressed
                 : control.hovered ? Theme.hover
                 : control.kind === "quiet" ? "transparent" : Theme.sidebar
        Behavior on color { ColorAnimation { duration: Theme.quick; easing.type: Easing.OutCubic } }
        FocusRing { shown: control.visualFocus }
    }

    ToolTip {
        text: control.hint
        shown: control.hovered && control.hint !== ""
    }
}
