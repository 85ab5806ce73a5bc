import QtQuick
import Ovrin

/* Makes the editor's sheet when there is something to edit. */
Item {
    id: root

    required property LibraryWindow model

    function load() { return loader.item }

    Loader {
        id: loader
        active: root.model.editor.isOpen
        Component.onCompleted: setSource("EditorSheet.qml", {model: root.model})
    }
}
