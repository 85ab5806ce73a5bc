import QtQuick
import Ovrin

/* Makes the recipe's page when a recipe is shown, and lets it go afterwards. */
FocusScope {
    id: root

    required property LibraryWindow model
    readonly property bool hasSheet: loader.item ? loader.item.hasSheet : false
    readonly property Item page: loader.item

    signal closed()
    signal shortcutsRequested()

    visible: model.recipe.isShown
    focus: model.recipe.isShown
    onWasShownChanged: if (!wasShown) closed()

    readonly property bool wasShown: loader.item !== null

    Loader {
        id: loader
        anchors.fill: parent
        focus: true
        active: root.model.recipe.isShown
        Component.onCompleted: setSource("RecipePage.qml", {model: root.model, focus: true})
        onLoaded: {
            item.takeFocus()
            item.shortcutsRequested.connect(root.shortcutsRequested)
        }
    }
}
