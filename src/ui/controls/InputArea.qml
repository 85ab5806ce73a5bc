import QtQuick
import QtQuick.Templates as T
import Ovrin

/* Several lines of text to type; grows with them. Tab leaves it, as everywhere else. */
T.TextArea {
    id: control

    property string label
    property bool isComplete: false

    /// The text became another one, typed, pasted or put there by an assistive program; not when the field,
    /// being filled, takes a line break for another.
    signal written()

    Component.onCompleted: isComplete = true
    onTextChanged: if (isComplete) written()

    implicitHeight: Math.max(Theme.rowHeight * 2, contentHeight + topPadding + bottomPadding)
    implicitWidth: 200
    topPadding: Theme.gap3
    bottomPadding: Theme.gap3
    font: Theme.input
    color: Theme.text
    placeholderTextColor: Theme.secondary
    selectionColor: Theme.accent
    selectedTextColor: Theme.inkOnAccent
    selectByMouse: true
    wrapMode: TextEdit.Wrap
    textFormat: TextEdit.PlainText
    activeFocusOnTab: true

    KeyNavigation.priority: KeyNavigation.BeforeItem
    Keys.priority: Keys.BeforeItem
    Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
    Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)

    Accessible.role: Accessible.EditableText
    Accessible.multiLine: true
    Accessible.name: label === "" ? placeholderText : label
    Accessible.onPressAction: forceActiveFocus()

    PlainText {
        x: control.leftPadding
        y: control.topPadding
        width: control.width - control.leftPadding - control.rightPadding
        visible: control.length === 0 && control.preeditText === ""
        text: control.placeholderText
        font: control.font
        color: control.placeholderTextColor
        Accessible.ignored: true
    }
    TextMenu { target: control }
}
