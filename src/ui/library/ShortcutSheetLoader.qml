import QtQuick
import Ovrin

/* Makes the list of shortcuts while it is open. */
Item {
    id: root

    required property LibraryWindow model
    property bool isOpen: false

    function open() { isOpen = true }

    Loader {
        active: root.isOpen
        Component.onCompleted: setSource("ShortcutSheet.qml", {model: root.model})
        onLoaded: item.closed.connect(() => root.isOpen = false)
    }
}
