import Ovrin

/* What can be done with the text of a field. */
ActionMenu {
    id: menu

    required property var field
    readonly property bool editable: !field.readOnly

    ActionItem {
        visible: menu.editable
        text: qsTr("Cut")
        enabled: menu.field.selectedText !== ""
        onTriggered: menu.field.cut()
    }
    ActionItem {
        text: qsTr("Copy")
        enabled: menu.field.selectedText !== ""
        onTriggered: menu.field.copy()
    }
    ActionItem {
        visible: menu.editable
        text: qsTr("Paste")
        enabled: menu.field.canPaste ?? false
        onTriggered: if (!menu.field.pasteHandler || !menu.field.pasteHandler()) menu.field.paste()
    }
    ActionItem {
        text: qsTr("Select All")
        enabled: menu.field.length > 0
        onTriggered: menu.field.selectAll()
    }
}
