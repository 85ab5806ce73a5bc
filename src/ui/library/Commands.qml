import QtQuick
import Ovrin

/* The window's shortcuts. None works while a sheet or an alert is up, which has its own. */
Item {
    id: commands

    required property LibraryWindow model
    property bool isFree: true

    signal importRequested()
    signal fileRequested()
    signal searchRequested()
    signal shortcutsRequested()
    signal closeRequested()
    signal quitRequested()

    Shortcut { enabled: commands.isFree; sequence: "Ctrl+N"; onActivated: commands.model.createRecipe() }
    Shortcut { enabled: commands.isFree; sequence: "Ctrl+I"; onActivated: commands.importRequested() }
    Shortcut {
        enabled: commands.isFree && commands.model.canImportFiles
        sequence: "Ctrl+O"
        onActivated: commands.fileRequested()
    }
    Shortcut {
        enabled: commands.isFree
        sequence: "Ctrl+F"
        onActivated: {
            commands.model.goBack()
            commands.searchRequested()
        }
    }
    Shortcut {
        enabled: commands.isFree && commands.model.recipe.isShown
        sequence: "Ctrl+E"
        onActivated: commands.model.editRecipe()
    }
    Shortcut {
        enabled: commands.isFree && commands.model.recipe.isShown && commands.model.canCook
        sequences: ["Ctrl+Return", "Ctrl+Enter"]
        onActivated: commands.model.cook()
    }
    Shortcut {
        enabled: commands.isFree && commands.model.recipe.isShown
        sequences: ["Alt+Left", "Back"]
        onActivated: commands.model.goBack()
    }
    Shortcut { enabled: commands.isFree; sequences: [StandardKey.Undo]; onActivated: commands.model.undoDelete() }
    Shortcut { enabled: commands.isFree; sequences: [StandardKey.Paste]; onActivated: commands.model.paste() }
    Shortcut { enabled: commands.isFree; sequences: ["Ctrl+?", "F1"]; onActivated: commands.shortcutsRequested() }
    Shortcut { sequence: "Ctrl+W"; onActivated: commands.closeRequested() }
    Shortcut { sequence: "Ctrl+Q"; onActivated: commands.quitRequested() }
}
