import QtQuick
import Ovrin

FormSection {
    id: root

    required property EditorModel editor
    required property Flickable form

    function focusRow(row) {
        // The row may have been made a moment ago: its item is there once the model's signal is through.
        Qt.callLater(() => {
            const item = rows.itemAt(row)
            if (item)
                item.made().takeFocus()
        })
    }

    title: qsTr("Ingredients")
    footnote: qsTr("One ingredient per line, starting with the amount so it can be scaled. Pressing Return adds the next line.")

    Repeater {
        id: rows
        model: root.editor.ingredients
        NearRow {
            id: place
            required property int index
            required property string line
            width: root.width
            estimate: Theme.rowHeight
            row: EditorIngredientRow {
                index: place.index
                line: place.line
                rowCount: rows.count
                column: place.parent
                editor: root.editor
                onRowWanted: row => root.focusRow(row)
            }
        }
    }
    NearRows { form: root.form; rows: rows }
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
