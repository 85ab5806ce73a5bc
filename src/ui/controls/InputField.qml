import QtQuick
import QtQuick.Templates as T
import Ovrin

/* One line of text to type. `framed` draws the box; inside a form's card the row draws it instead. */
T.TextField {
    id: control

    property bool framed: true
    property string label
    /// Takes what is pasted and says so, or leaves it to the field.
    property var pasteHandler: null
    property bool isComplete: false

    /// The text became another one, typed, pasted or put there by an assistive program.
    signal written()

    implicitHeight: framed ? Theme.controlHeight + 2 : Theme.rowHeight
    implicitWidth: 200
    leftPadding: framed ? Theme.gap3 : 0
    rightPadding: leftPadding
    verticalAlignment: TextInput.AlignVCenter
    font: Theme.input
    color: Theme.text
    placeholderTextColor: Theme.secondary
    selectionColor: Theme.accent
    selectedTextColor: Theme.inkOnAccent
    selectByMouse: true

    Component.onCompleted: isComplete = true
    onTextChanged: {
        // A long text that nobody is typing in shows its beginning.
        if (!activeFocus)
            cursorPosition = 0
        if (isComplete)
            written()
    }
    onActiveFocusChanged: if (!activeFocus) ensureVisible(0)

    Accessible.role: Accessible.EditableText
    Accessible.name: label === "" ? placeholderText : label
    Accessible.onPressAction: forceActiveFocus()

    Keys.onPressed: event => {
        if (event.matches(StandardKey.Paste) && pasteHandler)
            event.accepted = pasteHandler()
    }

    PlainText {
        x: control.leftPadding
        width: control.width - control.leftPadding - control.rightPadding
        height: control.height
        visible: control.length === 0 && control.preeditText === ""
        text: control.placeholderText
        font: control.font
        color: control.placeholderTextColor
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        wrapMode: Text.NoWrap
        Accessible.ignored: true
    }
    background: Rectangle {
        visible: control.framed
        radius: Theme.radiusControl
        color: Theme.card
        border.width: control.activeFocus ? Theme.ringWidth : Theme.hairline
        border.color: control.activeFocus ? Theme.accent : Theme.line
    }
    TextMenu { target: control }
}
