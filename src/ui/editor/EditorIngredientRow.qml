import QtQuick
import Ovrin

/*
    One ingredient line being edited. Return adds the next, Backspace in an empty line takes it away, the arrows
    go from line to line, Alt with them moves the line, and so does dragging its handle.
*/
Item {
    id: row

    required property int index
    required property string line
    property int rowCount: 0
    required property EditorModel editor
    /// What the rows lie in, one below the other.
    required property Item column

    signal rowWanted(int row)

    function takeFocus() { field.forceActiveFocus(Qt.OtherFocusReason) }
    function move(to) {
        if (to < 0 || to >= rowCount || to === index)
            return
        editor.ingredients.move(index, to)
    }

    height: field.height
    z: drag.active ? 1 : 0

    Rectangle {
        anchors.fill: parent
        anchors.margins: 1
        radius: Theme.radiusCard - 2
        color: Theme.hover
        visible: drag.active
    }
    Item {
        id: handle
        anchors.left: parent.left
        anchors.leftMargin: Theme.gap2
        width: Theme.gap7
        height: parent.height
        Symbol {
            anchors.centerIn: parent
            size: Theme.symbolSmall
            name: "grip"
            color: Theme.secondary
        }
        HoverHandler { cursorShape: drag.active ? Qt.ClosedHandCursor : Qt.OpenHandCursor }
        DragHandler {
            id: drag
            target: null
            xAxis.enabled: false
            onCentroidChanged: {
                if (!active)
                    return
                // By the place in the column, which is the same before and after the rows have moved aside.
                const y = handle.mapToItem(row.column, 0, centroid.position.y).y
                row.move(Math.max(0, Math.min(row.rowCount - 1, Math.floor(y / row.height))))
            }
        }
    }
    InputField {
        id: field
        objectName: "ingredient"
        anchors.left: handle.right
        anchors.leftMargin: Theme.gap1
        anchors.right: remove.left
        framed: false
        label: qsTr("Ingredient %1").arg(row.index + 1)
        placeholderText: qsTr("e.g. 2 tablespoons sugar")
        text: row.line
        pasteHandler: () => {
            const last = row.editor.pasteIntoIngredient(row.index, selectionStart, selectionEnd)
            if (last >= 0)
                row.rowWanted(last)
            return last >= 0
        }
        onWritten: if (text !== row.line) row.editor.ingredients.write(row.index, text)
        Keys.onReturnPressed: event => event.modifiers & Qt.ControlModifier
                              ? event.accepted = false
                              : row.rowWanted(row.editor.ingredients.insertAfter(row.index))
        Keys.onEnterPressed: row.rowWanted(row.editor.ingredients.insertAfter(row.index))
        Keys.onUpPressed: event => {
            if (event.modifiers & Qt.AltModifier)
                row.move(row.index - 1)
            else if (row.index > 0)
                row.rowWanted(row.index - 1)
        }
        Keys.onDownPressed: event => {
            if (event.modifiers & Qt.AltModifier)
                row.move(row.index + 1)
            else
                row.rowWanted(row.index + 1)
        }
        Keys.onPressed: event => {
            if (event.key === Qt.Key_Backspace && length === 0 && row.rowCount > 1) {
                event.accepted = true
                row.rowWanted(Math.max(0, row.index - 1))
                row.editor.ingredients.remove(row.index)
            }
        }
    }
    MarkButton {
        id: remove
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        symbol: "minus.circle.fill"
        hint: qsTr("Remove")
        Accessible.description: field.text
        onClicked: {
            if (row.rowCount > 1)
                row.rowWanted(Math.min(row.index, row.rowCount - 2))
            row.editor.ingredients.remove(row.index)
        }
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: Theme.hairline
        color: Theme.line
    }
    FieldFocus { shown: field.activeFocus }
}
