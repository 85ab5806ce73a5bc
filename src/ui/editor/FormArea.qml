import QtQuick
import Ovrin

/* A labelled field of several lines in a card of rows. */
Item {
    id: row

    property string label
    property alias text: area.text
    property int labelWidth: Math.round(110 * Theme.textScale)

    signal edited(string text)

    width: parent ? parent.width : 0
    height: area.height

    PlainText {
        x: LayoutMirroring.enabled ? parent.width - width - Theme.gap4 + 2 : Theme.gap4 - 2
        width: row.labelWidth
        height: Theme.rowHeight
        verticalAlignment: Text.AlignVCenter
        text: row.label
        font: Theme.input
        color: Theme.secondary
        wrapMode: Text.NoWrap
        elide: Text.ElideRight
        Accessible.ignored: true
    }
    InputArea {
        id: area
        anchors.left: parent.left
        anchors.leftMargin: Theme.gap4 - 2 + row.labelWidth
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap3
        leftPadding: 0
        rightPadding: 0
        implicitHeight: Math.max(Theme.rowHeight, contentHeight + topPadding + bottomPadding)
        label: row.label
        onWritten: row.edited(text)
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: Theme.hairline
        color: Theme.line
    }
    FieldFocus { shown: area.activeFocus }
}
