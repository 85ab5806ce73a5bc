import QtQuick
import Ovrin

/* The ingredients, at the scale chosen. */
Column {
    id: section

    required property LibraryWindow model
    readonly property RecipeViewModel recipe: model.recipe

    function lineAt(row) {
        // One that was made a moment ago has no place yet.
        forceLayout()
        return lines.itemAt(row)
    }

    spacing: 0

    Item {
        width: parent.width
        height: scaleMenu.height
        PlainText {
            anchors.left: parent.left
            anchors.right: scaleMenu.left
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("Ingredients")
            font: Theme.title
            wrapMode: Text.NoWrap
            elide: Text.ElideRight
            Accessible.role: Accessible.Heading
        }
        ScaleMenu {
            id: scaleMenu
            objectName: "scale"
            anchors.right: parent.right
            recipe: section.recipe
        }
    }
    Item { width: 1; height: Theme.gap2; visible: scaleNotice.visible || unitsNote.visible }
    PlainText {
        id: scaleNotice
        width: parent.width
        visible: text !== ""
        text: section.recipe.scaleNotice
        font: Theme.caption
        color: Theme.secondary
        lineHeight: 1.3
    }
    PlainText {
        id: unitsNote
        width: parent.width
        visible: section.recipe.showsUnitsNote
        text: qsTr("Recipe units are from the publisher.")
        font: Theme.caption
        color: Theme.secondary
        lineHeight: 1.3
    }
    Item { width: 1; height: Theme.gap2 }
    PlainText {
        visible: !section.recipe.hasIngredients
        text: qsTr("No ingredients.")
        color: Theme.secondary
    }
    Repeater {
        id: lines
        model: section.recipe.ingredients
        IngredientRow { width: section.width }
    }
    Item { width: 1; height: Theme.gap5; visible: section.model.canAddGroceries }
    PushButton {
        visible: section.model.canAddGroceries
        enabled: !section.model.isAddingGroceries
        symbol: "checklist"
        text: qsTr("Add to Grocery List in Reminders")
        onClicked: section.model.addGroceries()
    }
    PlainText {
        width: parent.width
        topPadding: Theme.gap2
        visible: text !== ""
        text: section.model.groceryMessage
        font: Theme.secondaryText
        color: Theme.secondary
    }
}
