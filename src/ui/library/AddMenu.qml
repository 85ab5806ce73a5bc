import Ovrin

/* The ways in which a recipe comes into the library. */
ActionMenu {
    id: menu

    required property RecipeGrid grid

    ActionItem {
        text: qsTr("Import from Web…"); symbol: "safari"; shortcutText: qsTr("Ctrl+I")
        onTriggered: menu.grid.importRequested()
    }
    ActionItem {
        visible: menu.grid.model.canImportFiles
        text: qsTr("Import PDF or Image…"); symbol: "doc.text.viewfinder"; shortcutText: qsTr("Ctrl+O")
        onTriggered: menu.grid.fileRequested()
    }
    ActionItem {
        visible: menu.grid.model.canImportPictures
        text: qsTr("Import Screenshot or Photo…"); symbol: "photo.on.rectangle"
        onTriggered: menu.grid.photoRequested()
    }
    ActionSeparator {}
    ActionItem {
        text: qsTr("New Recipe"); symbol: "square.and.pencil"; shortcutText: qsTr("Ctrl+N")
        onTriggered: menu.grid.model.createRecipe()
    }
    ActionSeparator {}
    ActionItem {
        text: qsTr("Keyboard Shortcuts"); symbol: "keyboard"; shortcutText: qsTr("F1")
        onTriggered: menu.grid.shortcutsRequested()
    }
}
