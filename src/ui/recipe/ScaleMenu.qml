import QtQuick
import Ovrin

/* The scale picker. */
PushButton {
    id: button

    required property RecipeViewModel recipe

    symbol: "plus.forwardslash.minus"
    text: recipe.scale === 1 ? "" : recipe.scaleLabel
    hint: qsTr("Scale")
    Accessible.role: Accessible.ButtonMenu
    Accessible.name: qsTr("Scale")
    Accessible.description: recipe.scaleLabel
    onClicked: menu.popup(button, button.width - menu.width, button.height + Theme.gap1)

    ActionMenu {
        id: menu
        label: button.hint
        Instantiator {
            id: choices
            model: button.recipe.scaleChoices
            delegate: ActionItem {
                required property var modelData
                text: modelData.label
                checkable: true
                checked: button.recipe.scale === modelData.factor
                Accessible.role: Accessible.RadioButton
                onTriggered: {
                    button.recipe.scale = modelData.factor
                    checked = Qt.binding(() => button.recipe.scale === modelData.factor)
                }
            }
            onObjectAdded: (index, object) => menu.insertItem(index, object)
            onObjectRemoved: (index, object) => menu.removeItem(object)
        }
    }
}
