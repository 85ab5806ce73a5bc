import QtQuick
import Ovrin

/* One ingredient line, which can be selected and copied; or a heading of the list. */
Item {
    id: row
    objectName: "ingredientLine"
    readonly property bool isLit: glowing.opacity > 0

    required property int index
    required property string lineText
    required property string richText
    required property bool isHeading

    function light() { glow.restart() }

    implicitHeight: Math.max(words.contentHeight + (isHeading ? Theme.gap6 : Theme.gap4 + 2), Theme.gap10)
    Accessible.role: Accessible.ListItem
    Accessible.name: lineText

    Rectangle {
        id: glowing
        anchors.fill: parent
        anchors.leftMargin: -Theme.gap2
        anchors.rightMargin: -Theme.gap2
        radius: Theme.radiusControl
        color: Theme.lit
        opacity: 0
        SequentialAnimation {
            id: glow
            PropertyAction { target: glowing; property: "opacity"; value: 1 }
            PauseAnimation { duration: 700 }
            NumberAnimation { target: glowing; property: "opacity"; to: 0; duration: Theme.glow }
        }
    }
    TextEdit {
        id: words
        anchors.left: parent.left
        anchors.right: parent.right
        y: row.isHeading ? parent.height - height - Theme.gap2 : Math.round((parent.height - height) / 2)
        readOnly: true
        selectByMouse: true
        persistentSelection: false
        activeFocusOnPress: true
        text: row.isHeading ? row.lineText.replace(/:\s*$/, "") : row.richText
        textFormat: row.isHeading ? TextEdit.PlainText : TextEdit.RichText
        font: row.isHeading ? Theme.secondaryStrong : Theme.body
        color: row.isHeading ? Theme.secondary : Theme.text
        selectionColor: Theme.accent
        selectedTextColor: Theme.inkOnAccent
        wrapMode: TextEdit.Wrap
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
        TextMenu { target: words }
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: Theme.hairline
        color: Theme.line
        visible: !row.isHeading
    }
}
