import QtQuick
import Ovrin

/* Back, edit and more: they stay while the page scrolls under them. */
Item {
    id: bar

    required property LibraryWindow model
    property int margin

    signal groceryFileRequested()
    signal deleteRequested()
    signal shortcutsRequested()

    height: back.height + Theme.gap4 * 2

    PhotoButton {
        id: back
        objectName: "back"
        anchors.left: parent.left
        anchors.leftMargin: bar.margin
        y: Theme.gap4
        symbol: mirrored ? "chevron.right" : "chevron.left"
        hint: qsTr("Back")
        onClicked: bar.model.goBack()
    }
    PhotoButton {
        id: edit
        objectName: "edit"
        anchors.right: more.left
        anchors.rightMargin: Theme.gap2
        y: Theme.gap4
        symbol: "pencil"
        hint: qsTr("Edit")
        onClicked: bar.model.editRecipe()
    }
    PhotoButton {
        id: more
        objectName: "more"
        anchors.right: parent.right
        anchors.rightMargin: bar.margin
        y: Theme.gap4
        symbol: "ellipsis"
        hint: qsTr("More")
        Accessible.role: Accessible.ButtonMenu
        onClicked: menu.popup(more, more.width - menu.width, more.height + Theme.gap1)
        ActionMenu {
            id: menu
            label: more.hint
            ActionItem {
                visible: bar.model.recipe.hasPage
                text: qsTr("Open Original Page"); symbol: "safari"
                onTriggered: bar.model.openPage(bar.model.recipe.recipeId)
            }
            ActionItem {
                visible: bar.model.recipe.hasIngredients
                text: qsTr("Save Grocery List…"); symbol: "checklist"
                onTriggered: bar.groceryFileRequested()
            }
            ActionItem {
                text: qsTr("Keyboard Shortcuts"); symbol: "keyboard"; shortcutText: qsTr("F1")
                onTriggered: bar.shortcutsRequested()
            }
            ActionItem {
                text: qsTr("Delete Recipe"); symbol: "trash"; destructive: true
                onTriggered: bar.deleteRequested()
            }
        }
    }
}
