import QtQuick
import Ovrin

Rectangle {
    id: bar

    property string text
    property string actionText

    signal acted()
    signal dismissed()

    implicitWidth: Math.ceil(measure.advanceWidth) + (actionText === "" ? 0 : action.width) + close.width + Theme.gap6
    implicitHeight: Math.max(words.implicitHeight + Theme.gap4, Theme.controlHeight + Theme.gap3)
    radius: Theme.radiusCard
    color: Theme.card
    border.width: Theme.hairline
    border.color: Theme.line
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    TextMetrics { id: measure; font: words.font; text: bar.text.substring(0, 200) }
    Rectangle {
        z: -1
        anchors.fill: parent
        anchors.margins: -4
        anchors.topMargin: 0
        anchors.bottomMargin: -7
        radius: Theme.radiusCard + 4
        color: Theme.shadow
    }
    PlainText {
        id: words
        anchors.left: parent.left
        anchors.leftMargin: Theme.gap4
        anchors.right: action.visible ? action.left : close.left
        anchors.verticalCenter: parent.verticalCenter
        text: bar.text
        font: Theme.input
        maximumLineCount: 3
        elide: Text.ElideRight
        Accessible.ignored: true
    }
    PushButton {
        id: action
        visible: bar.actionText !== ""
        anchors.right: close.left
        anchors.verticalCenter: parent.verticalCenter
        kind: "quiet"
        text: bar.actionText
        onClicked: bar.acted()
    }
    MarkButton {
        id: close
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        symbol: "xmark"
        size: Theme.symbolSmall - 2
        hint: qsTr("Dismiss")
        onClicked: bar.dismissed()
    }
}
