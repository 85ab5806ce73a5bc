import QtCore
import QtQuick
import QtQuick.Dialogs
import Ovrin

/* The choosers of files to import; made when first asked for. */
Item {
    id: root

    required property LibraryWindow model

    function openForDocument() { documents.active = true; documents.item.open() }
    function openForPhoto() { photos.active = true; photos.item.open() }

    Loader {
        id: documents
        active: false
        sourceComponent: Item {
            function open() { dialog.open() }
            FileDialog {
                id: dialog
                title: qsTr("Import PDF or Image")
                nameFilters: [qsTr("PDFs, images, saved pages and texts (%1)").arg("*.pdf *.png *.jpg *.jpeg *.webp *.heic *.heif *.avif *.tif *.tiff *.gif *.bmp *.html *.htm *.xhtml *.txt *.md"),
                              qsTr("All files (*)")]
                onAccepted: root.model.importFile(selectedFile)
            }
        }
    }
    Loader {
        id: photos
        active: false
        sourceComponent: Item {
            function open() { dialog.open() }
            FileDialog {
                id: dialog
                title: qsTr("Import Screenshot or Photo")
                currentFolder: StandardPaths.writableLocation(StandardPaths.PicturesLocation)
                nameFilters: [qsTr("Images (%1)").arg("*.png *.jpg *.jpeg *.webp *.heic *.heif *.avif *.tif *.tiff *.gif *.bmp")]
                onAccepted: root.model.importFile(selectedFile)
            }
        }
    }
}
