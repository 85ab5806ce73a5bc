import QtQuick
import Ovrin

/* The steps, and the notes below them. */
Column {
    id: section

    required property LibraryWindow model
    readonly property RecipeViewModel recipe: model.recipe

    signal linkFocused(Item item)

    spacing: Theme.gap3

    PlainText {
        width: parent.width
        height: Theme.controlHeight
        verticalAlignment: Text.AlignVCenter
        text: qsTr("Directions")
        font: Theme.title
        Accessible.role: Accessible.Heading
    }
    PlainText {
        visible: !section.recipe.hasDirections
        text: qsTr("No directions.")
        color: Theme.secondary
    }
    Repeater {
        model: section.recipe.directions
        DirectionRow {
            width: section.width
            directions: section.recipe.directions
            onLinkActivated: address => section.model.activateLink(address)
            onLinkFocused: section.linkFocused(this)
        }
    }
    Column {
        visible: section.recipe.notes !== ""
        width: parent.width
        topPadding: Theme.gap5
        spacing: Theme.gap2
        StepLabel { text: qsTr("NOTES") }
        PlainText {
            width: parent.width
            text: section.recipe.notes
            lineHeight: Theme.leading
        }
    }
}
