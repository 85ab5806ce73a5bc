import QtQuick
import QtQuick.Templates as T
import Ovrin

/* A pill or, without a word, a round button that lies on a photo. `bright` marks the main one. */
T.Button {
    id: control

    property string symbol
    property string trailing
    property string hint
    property bool bright: false
    readonly property color ink: bright ? Theme.photoInk : Theme.photoWhite

    implicitHeight: text === "" ? Theme.controlHeight : Theme.controlHeight + 2
    implicitWidth: text === "" ? implicitHeight : Math.ceil(row.implicitWidth) + Theme.gap4 * 2
    font: Theme.controlStrong
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Accessible.role: Accessible.Button
    Accessible.name: text === "" ? hint : text
    Accessible.checked: checked
    Accessible.onPressAction: clicked()

    contentItem: Item {
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
            Symbol {
                visible: control.trailing !== ""
                anchors.verticalCenter: parent.verticalCenter
                size: Theme.symbolSmall
                name: control.trailing
                color: control.ink
                mirror: control.mirrored
            }
        }
    }
    background: Rectangle {
        radius: height / 2
        color: control.bright ? Theme.photoWhite
             : control.text === "" ? (control.hovered ? Theme.photoRoundHover : Theme.photoRound)
             : control.down ? Theme.photoPillPressed
             : control.hovered ? Theme.photoPillHover : Theme.photoPill
        opacity: control.bright && control.hovered ? 0.92 : 1
        Behavior on color { ColorAnimation { duration: Theme.quick; easing.type: Easing.OutCubic } }
        Rectangle {
            // The accent is lost on a photo: the ring here is white.
            visible: control.visualFocus
            anchors.fill: parent
            anchors.margins: -(Theme.ringGap + Theme.ringWidth)
            radius: height / 2
            color: "transparent"
            border.width: Theme.ringWidth
            border.color: Theme.photoWhite
        }
    }
    ToolTip {
        text: control.hint
        shown: control.hovered && control.hint !== ""
    }
}
