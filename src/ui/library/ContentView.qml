import QtQuick
import Ovrin

/* Everything in the library window: the sidebar, the grid or a recipe, and the sheets over them. */
FocusScope {
    id: content

    required property LibraryWindow model
    readonly property bool hasUnsavedWords: model.editor.isOpen && model.editor.isChanged
    readonly property bool isFree: !model.editor.isOpen && !importing.isOpen && model.failure === ""
                                   && !shortcuts.isOpen && !page.hasSheet
    readonly property Item grid: grid

    signal closeRequested()
    signal quitRequested()

    function askToDiscard(then) { editing.load().askToDiscard(then) }

    Component.onCompleted: model.appear()

    LayoutMirroring.enabled: Qt.application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    Row {
        anchors.fill: parent
        Sidebar {
            id: sidebar
            height: parent.height
            isFolded: content.width < Theme.sidebarFoldsBelow
            model: content.model
        }
        FocusScope {
            id: detail
            width: content.width - sidebar.width
            height: parent.height
            focus: true
            clip: true

            RecipeGrid {
                id: grid
                anchors.fill: parent
                visible: !content.model.recipe.isShown
                focus: !content.model.recipe.isShown
                model: content.model
                onImportRequested: importing.open()
                onFileRequested: files.dialogs().openForDocument()
                onPhotoRequested: files.dialogs().openForPhoto()
                onShortcutsRequested: shortcuts.open()
            }
            RecipePageLoader {
                id: page
                anchors.fill: parent
                model: content.model
                onClosed: grid.takeFocus()
                onShortcutsRequested: shortcuts.open()
            }
        }
    }

    Loader {
        active: content.model.message !== "" || content.model.deletedTitle !== ""
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.gap6
        width: Math.min(parent.width - Theme.gap8, 520)
        Component.onCompleted: setSource("Notices.qml", {model: content.model})
    }

    DropArea {
        id: drops
        anchors.fill: parent
        enabled: content.isFree
        onEntered: drag => drag.accepted = drag.hasUrls || drag.hasText
        onDropped: drop => drop.accepted = content.model.drop(drop.urls, drop.text)
        Rectangle {
            anchors.fill: parent
            anchors.margins: Theme.gap2
            visible: drops.containsDrag
            color: "transparent"
            radius: Theme.radiusCard
            border.width: Theme.ringWidth + 1
            border.color: Theme.accent
        }
    }

    ImportSheetLoader { id: importing; objectName: "importSheet"; model: content.model }
    EditorSheetLoader { id: editing; model: content.model }
    ShortcutSheetLoader { id: shortcuts; objectName: "shortcutSheet"; model: content.model }
    Deferred {
        id: files
        readonly property var dialogs: () => made({model: content.model})
        view: Qt.resolvedUrl("../importing/FileDialogs.qml")
    }

    Loader {
        active: content.model.failure !== ""
        Component.onCompleted: setSource("FailureAlert.qml", {model: content.model})
    }

    Connections {
        target: content.model
        function onImportSheetWanted() { importing.open() }
    }
    Commands {
        model: content.model
        isFree: content.isFree
        onImportRequested: importing.open()
        onFileRequested: files.dialogs().openForDocument()
        onSearchRequested: grid.search()
        onShortcutsRequested: shortcuts.open()
        onCloseRequested: content.closeRequested()
        onQuitRequested: content.quitRequested()
    }
}
