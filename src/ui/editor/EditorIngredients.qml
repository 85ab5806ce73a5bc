import QtQuick
import Ovrin

FormSection {
    id: root

    required property EditorModel editor

    function focusRow(row) {
        // The row may have been made a moment ago: its item is there once the model's signal is through.
        Qt.callLater(() => {
            const item = rows.itemAt(row)
            if (item)
                item.takeFocus()
        })
    }

    title: qsTr("Ingredients")
    footnote: qsTr("One ingredient per line, starting with the amount so it can be scaled. Pressing Return adds the next line.")

    Repeater {
        id: rows
        model: root.editor.ingredients
        EditorIngredientRow {
            width: root.width
            rowCount: rows.count
            editor: root.editor
            onRowWanted: row => root.focusRow(row)
        }
    }
    Flow {
        width: root.width
        padding: Theme.gap3
        spacing: Theme.gap2 + 2
        PushButton {
            objectName: "addIngredient"
            symbol: "plus.circle.fill"
            text: qsTr("Add Ingredient")
            onClicked: root.focusRow(root.editor.ingredients.insertAfter(rows.count - 1))
        }
        PushButton {
            objectName: "pasteList"
            symbol: "doc.on.clipboard"
            text: qsTr("Paste List")
            onClicked: root.editor.pasteIngredients()
        }
    }
}
