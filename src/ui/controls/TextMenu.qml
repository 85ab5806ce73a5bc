import QtQuick
import Ovrin

/* The context menu of a text field. */
Item {
    id: root

    required property Item target
    readonly property bool editable: !target.readOnly

    anchors.fill: parent

    TapHandler {
        acceptedButtons: Qt.RightButton
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: point => {
            const start = root.target.selectionStart, end = root.target.selectionEnd
            root.target.forceActiveFocus(Qt.MouseFocusReason)
            root.target.select(start, end)
            menu.item ? menu.item.popup(point.position.x, point.position.y) : menu.openAt(point.position)
        }
    }
    Loader {
        id: menu

        property point at

        function openAt(position) {
            at = position
            active = true
        }

        active: false
        onLoaded: item.popup(at.x, at.y)
        sourceComponent: ActionMenu {
            ActionItem {
                visible: root.editable
                text: qsTr("Cut")
                enabled: root.target.selectedText !== ""
                onTriggered: root.target.cut()
            }
            ActionItem {
                text: qsTr("Copy")
                enabled: root.target.selectedText !== ""
                onTriggered: root.target.copy()
            }
            ActionItem {
                visible: root.editable
                text: qsTr("Paste")
                enabled: root.target.canPaste ?? false
                onTriggered: if (!root.target.pasteHandler || !root.target.pasteHandler()) root.target.paste()
            }
            ActionItem {
                text: qsTr("Select All")
                enabled: root.target.length > 0
                onTriggered: root.target.selectAll()
            }
        }
    }
}
