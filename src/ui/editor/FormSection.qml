import QtQuick
import Ovrin

/* A part of the form: its heading, a card of rows, and a footnote. */
Column {
    id: section

    property string title
    property string footnote
    property bool framed: true
    default property alias rows: holder.data

    spacing: Theme.gap2

    PlainText {
        width: parent.width
        text: section.title
        font: Theme.secondaryStrong
        color: Theme.secondary
        Accessible.role: Accessible.Heading
    }
    Rectangle {
        width: parent.width
        height: holder.implicitHeight
        visible: height > 0
        radius: Theme.radiusCard
        color: section.framed ? Theme.card : "transparent"
        border.width: section.framed ? Theme.hairline : 0
        border.color: Theme.line
        Column {
            id: holder
            width: parent.width
        }
    }
    PlainText {
        width: parent.width
        visible: text !== ""
        text: section.footnote
        font: Theme.caption
        color: Theme.secondary
        lineHeight: 1.3
    }
}
