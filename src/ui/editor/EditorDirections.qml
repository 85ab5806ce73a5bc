import QtQuick
import Ovrin

FormSection {
    id: root

    required property EditorModel editor

    title: qsTr("Directions")
    framed: false
    footnote: qsTr("Separate paragraphs with a blank line — each is its own stop in Cook mode. Ingredient names are bolded automatically and times like “10 minutes” become timers.")

    Column {
        width: root.width
        spacing: Theme.gap3
        Repeater {
            id: repeater
            model: root.editor.steps
            EditorStep {
                width: root.width
                stepCount: repeater.count
                rows: root.editor.steps
            }
        }
        PushButton {
            objectName: "addStep"
            symbol: "plus.circle.fill"
            text: qsTr("Add Step")
            onClicked: {
                const row = root.editor.steps.append()
                Qt.callLater(() => repeater.itemAt(row).takeFocus())
            }
        }
    }
}
