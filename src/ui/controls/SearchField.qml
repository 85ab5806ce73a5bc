import QtQuick
import QtQuick.Templates as T
import Ovrin

/* The search field: Escape empties it, the cross does too. */
T.TextField {
    id: control

    readonly property bool mirrored: LayoutMirroring.enabled
    readonly property int symbolPadding: Theme.gap3 + Theme.symbolSmall + Theme.gap2

    signal leftDownwards()

    implicitHeight: Theme.controlHeight
    implicitWidth: 260
    leftPadding: mirrored ? Theme.controlHeight : symbolPadding
    rightPadding: mirrored ? symbolPadding : Theme.controlHeight
    verticalAlignment: TextInput.AlignVCenter
    font: Theme.input
    color: Theme.text
    placeholderTextColor: Theme.secondary
    selectionColor: Theme.accent
    selectedTextColor: Theme.inkOnAccent
    selectByMouse: true

    Accessible.role: Accessible.EditableText
    Accessible.searchEdit: true
    Accessible.name: placeholderText
    Accessible.onPressAction: forceActiveFocus()
    Keys.onEscapePressed: event => {
        event.accepted = text !== ""
        clear()
    }
    Keys.onDownPressed: leftDownwards()
    Keys.onReturnPressed: leftDownwards()

    Symbol {
        x: control.mirrored ? control.width - width - Theme.gap3 : Theme.gap3
        anchors.verticalCenter: parent.verticalCenter
        size: Theme.symbolSmall
        name: "magnifyingglass"
        color: Theme.secondary
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
    MarkButton {
        visible: control.text !== ""
        x: control.mirrored ? 0 : control.width - width
        anchors.verticalCenter: parent.verticalCenter
        symbol: "xmark.circle.fill"
        hint: qsTr("Clear search")
        focusPolicy: Qt.NoFocus
        onClicked: control.clear()
    }
    background: Rectangle {
        radius: Theme.radiusControl
        color: control.activeFocus ? Theme.card : Theme.sidebar
        border.width: control.activeFocus ? Theme.ringWidth : Theme.hairline
        border.color: control.activeFocus ? Theme.accent : Theme.line
    }
    TextMenu { target: control }
}
