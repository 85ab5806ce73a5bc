import QtQuick
import QtQuick.Dialogs
import Ovrin

/* Where to save the grocery list; made when first asked for. */
Item {
    id: root

    required property LibraryWindow model

    function open() {
        loader.active = true
        loader.item.open()
    }

    Loader {
        id: loader
        active: false
        sourceComponent: Item {
            function open() {
                dialog.selectedFile = root.model.groceryFile()
                dialog.open()
            }
            FileDialog {
                id: dialog
                title: qsTr("Save Grocery List")
                fileMode: FileDialog.SaveFile
                acceptLabel: qsTr("Save")
                defaultSuffix: "ics"
                nameFilters: [qsTr("Task lists (%1)").arg("*.ics")]
                onAccepted: root.model.saveGroceries(selectedFile)
            }
        }
    }
}
