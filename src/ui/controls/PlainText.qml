import QtQuick
import Ovrin

/* Words, never markup. */
Text {
    textFormat: Text.PlainText
    font: Theme.body
    color: Theme.text
    wrapMode: Text.Wrap
    horizontalAlignment: Text.AlignLeft
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
