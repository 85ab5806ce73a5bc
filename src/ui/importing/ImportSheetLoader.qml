import QtQuick
import Ovrin

/* Makes the import sheet while it is open. */
Item {
    id: root

    required property LibraryWindow model
    property bool isOpen: false

    function open() {
        model.prepareImportSheet()
        isOpen = true
    }

    Loader {
        active: root.isOpen
        Component.onCompleted: setSource("ImportSheet.qml", {model: root.model})
        onLoaded: item.closed.connect(() => root.isOpen = false)
    }
}
