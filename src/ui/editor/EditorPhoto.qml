import QtCore
import QtQuick
import QtQuick.Dialogs
import Ovrin

/* The photo: chosen from a file, dropped or pasted here. */
Item {
    id: root

    required property EditorModel editor
    readonly property bool hasPhoto: editor.photo.toString() !== ""

    implicitHeight: Math.max(frame.height, buttons.height)

    Rectangle {
        id: frame
        objectName: "editorPhoto"
        anchors.left: parent.left
        width: Math.round(150 * Math.min(Theme.textScale, 1.3))
        height: Math.round(width * 3 / 4)
        radius: Theme.radiusCard
        color: Theme.card
        border.width: drops.containsDrag ? Theme.ringWidth : Theme.hairline
        border.color: drops.containsDrag ? Theme.accent : Theme.line
        activeFocusOnTab: true
        Accessible.role: Accessible.Graphic
        Accessible.name: root.hasPhoto ? qsTr("The recipe’s photo") : qsTr("No photo")
        Accessible.description: qsTr("Drop or paste a picture here")
        Keys.onPressed: event => {
            if (event.matches(StandardKey.Paste))
                event.accepted = root.editor.pastePhoto()
            else if (event.key === Qt.Key_Delete || event.key === Qt.Key_Backspace)
                root.editor.removePhoto()
        }
        Symbol {
            anchors.centerIn: parent
            visible: !root.hasPhoto && !root.editor.isMakingPhoto
            size: Math.round(32 * Theme.textScale)
            name: "photo.on.rectangle"
            color: Theme.secondary
        }
        Image {
            readonly property real ratio: Screen.devicePixelRatio
            anchors.fill: parent
            sourceSize: Qt.size(Math.round(width * ratio), Math.round(height * ratio))
            source: root.hasPhoto ? root.editor.photo + "?radius=" + Math.round(Theme.radiusCard * ratio) : ""
            Accessible.ignored: true
        }
        Spinner {
            anchors.centerIn: parent
            visible: root.editor.isMakingPhoto
        }
        FocusRing { shown: parent.activeFocus; around: Theme.radiusCard }
    }
    Column {
        id: buttons
        anchors.left: frame.right
        anchors.leftMargin: Theme.gap4
        anchors.right: parent.right
        anchors.verticalCenter: frame.verticalCenter
        spacing: Theme.gap2
        Flow {
            width: parent.width
            spacing: Theme.gap2 + 2
            PushButton {
                symbol: "photo.on.rectangle"
                text: qsTr("Photo Library")
                onClicked: {
                    chooser.active = true
                    chooser.item.open(StandardPaths.writableLocation(StandardPaths.PicturesLocation))
                }
            }
            PushButton {
                symbol: "folder"
                text: qsTr("Choose File")
                onClicked: {
                    chooser.active = true
                    chooser.item.open("")
                }
            }
            PushButton {
                visible: root.hasPhoto
                symbol: "trash"
                hint: qsTr("Remove photo")
                onClicked: root.editor.removePhoto()
            }
        }
        PlainText {
            width: parent.width
            visible: text !== ""
            text: root.editor.photoProblem
            font: Theme.secondaryText
            color: Theme.destructive
        }
    }
    DropArea {
        id: drops
        anchors.fill: parent
        onEntered: drag => drag.accepted = drag.urls.length > 0
        onDropped: drop => {
            drop.accept()
            root.editor.choosePhoto(drop.urls[0])
        }
    }
    Loader {
        id: chooser
        active: false
        sourceComponent: Item {
            function open(folder) {
                if (folder !== "")
                    dialog.currentFolder = folder
                dialog.open()
            }
            FileDialog {
                id: dialog
                title: qsTr("Choose a Photo")
                nameFilters: [qsTr("Images (%1)").arg("*.png *.jpg *.jpeg *.webp *.heic *.heif *.avif *.tif *.tiff *.gif *.bmp")]
                onAccepted: root.editor.choosePhoto(selectedFile)
            }
        }
    }
}
