import QtQuick
import Ovrin

/* The context menu of a text field. */
Item {
    id: root

    required property Item target

    anchors.fill: parent

    TapHandler {
        acceptedButtons: Qt.RightButton
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: point => {
            const start = root.target.selectionStart, end = root.target.selectionEnd
            root.target.forceActiveFocus(Qt.MouseFocusReason)
            root.target.select(start, end)
            menu.made({field: root.target}).popup(root, point.position.x, point.position.y)
        }
    }
    Deferred { id: menu; view: Qt.resolvedUrl("TextActions.qml") }
}
