import Ovrin

/* The context menu of a card. */
ActionMenu {
    id: menu

    required property LibraryWindow model
    property RecipeCard card

    label: card ? card.title : ""
    onCardChanged: if (!card) close()
    ActionItem {
        readonly property bool isSaved: menu.card ? menu.card.isSaved : false
        text: isSaved ? qsTr("Unsave") : qsTr("Save")
        symbol: isSaved ? "bookmark.slash" : "bookmark"
        onTriggered: menu.model.toggleSaved(menu.card.recipeId)
    }
    ActionItem {
        visible: menu.card ? menu.card.hasPage : false
        text: qsTr("Open Original Page"); symbol: "safari"
        onTriggered: menu.model.openPage(menu.card.recipeId)
    }
    ActionItem {
        text: qsTr("Delete"); symbol: "trash"; destructive: true
        shortcutText: qsTr("Del")
        onTriggered: menu.model.deleteRecipe(menu.card.recipeId)
    }
}
