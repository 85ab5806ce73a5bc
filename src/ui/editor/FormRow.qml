import QtQuick
import Ovrin

/* A labelled field in a card of rows. */
Item {
    id: row

    property string label
    property alias text: field.text
    property alias placeholder: field.placeholderText
    property alias field: field
    property bool isLast: false
    property int labelWidth: Math.round(110 * Theme.textScale)

    signal edited(string text)

    width: parent ? parent.width : 0
    height: field.height

    PlainText {
        id: words
        x: LayoutMirroring.enabled ? parent.width - width - Theme.gap4 + 2 : Theme.gap4 - 2
        width: row.labelWidth
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        text: row.label
        font: Theme.input
        color: Theme.secondary
        wrapMode: Text.NoWrap
        elide: Text.ElideRight
        Accessible.ignored: true
    }
    InputField {
        id: field
        anchors.left: parent.left
        anchors.leftMargin: Theme.gap4 - 2 + row.labelWidth
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap3
        framed: false
        label: row.label
        onWritten: row.edited(text)
    }
    Rectangle {
        visible: !row.isLast
        anchors.bottom: parent.bottom
        width: parent.width
        height: Theme.hairline
        color: Theme.line
    }
    FieldFocus { shown: field.activeFocus }
}
