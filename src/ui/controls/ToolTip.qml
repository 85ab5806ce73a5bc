import QtQuick
import QtQuick.Templates as T
import Ovrin

/* A quiet hint under what the pointer rests on. */
T.ToolTip {
    id: tip

    property bool shown: false

    visible: shown
    delay: Theme.patience * 2
    timeout: 5000
    x: Math.round(((parent ? parent.width : 0) - implicitWidth) / 2)
    y: (parent ? parent.height : 0) + Theme.gap1
    margins: Theme.gap2
    implicitWidth: words.implicitWidth + leftPadding + rightPadding
    implicitHeight: words.implicitHeight + topPadding + bottomPadding
    padding: Theme.gap1 + 2
    leftPadding: Theme.gap2
    rightPadding: Theme.gap2

    contentItem: Text {
        id: words
        text: tip.text
        textFormat: Text.PlainText
        font: Theme.caption
        color: Theme.text
        Accessible.ignored: true
    }
    background: Rectangle {
        radius: Theme.radiusSmall
        color: Theme.card
        border.width: Theme.hairline
        border.color: Theme.line
    }
}
