import QtQuick
import Ovrin

/* What is being imported, with a way to stop it. Comes up only when it takes longer than a moment. */
Rectangle {
    id: card

    property string text
    property bool isFolded: false
    property bool isDue: false

    signal cancelled()

    visible: isDue && text !== ""
    implicitHeight: isFolded ? cancel.height + spinner.height + Theme.gap3
                             : Math.max(words.implicitHeight, cancel.height - Theme.gap2) + Theme.gap4
    radius: Theme.radiusCard - 4
    color: isFolded ? "transparent" : Theme.card
    border.width: isFolded ? 0 : Theme.hairline
    border.color: Theme.line
    Accessible.role: Accessible.StatusBar
    Accessible.name: text
    onTextChanged: if (text === "") isDue = false

    Timer {
        interval: Theme.patience
        running: card.text !== "" && !card.isDue
        onTriggered: card.isDue = true
    }
    Spinner {
        id: spinner
        x: card.isFolded ? Math.round((parent.width - width) / 2) : Theme.gap3
        anchors.top: card.isFolded ? parent.top : undefined
        anchors.verticalCenter: card.isFolded ? undefined : parent.verticalCenter
    }
    PlainText {
        id: words
        visible: !card.isFolded
        anchors.left: spinner.right
        anchors.leftMargin: Theme.gap2 + 2
        anchors.right: cancel.left
        anchors.verticalCenter: parent.verticalCenter
        text: card.text
        font: Theme.caption
        color: Theme.secondary
        maximumLineCount: 3
        elide: Text.ElideRight
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
    MarkButton {
        id: cancel
        anchors.right: parent.right
        anchors.rightMargin: card.isFolded ? Math.round((parent.width - width) / 2) : 0
        anchors.bottom: card.isFolded ? parent.bottom : undefined
        anchors.verticalCenter: card.isFolded ? undefined : parent.verticalCenter
        symbol: "xmark.circle.fill"
        hint: qsTr("Cancel import")
        onClicked: card.cancelled()
    }
}
