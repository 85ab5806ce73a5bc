import QtQuick
import Ovrin

FormSection {
    id: root

    required property EditorModel editor
    required property Flickable form

    title: qsTr("Directions")
    framed: false
    footnote: qsTr("Separate paragraphs with a blank line — each is its own stop in Cook mode. Ingredient names are bolded automatically and times like “10 minutes” become timers.")

    Column {
        width: root.width
        spacing: Theme.gap3
        Repeater {
            id: repeater
            model: root.editor.steps
            NearRow {
                id: place
                required property int index
                required property string stepTitle
                required property string stepText
                width: root.width
                estimate: Theme.rowHeight * 3
                row: EditorStep {
                    index: place.index
                    stepTitle: place.stepTitle
                    stepText: place.stepText
                    stepCount: repeater.count
                    rows: root.editor.steps
                }
            }
        }
        NearRows { form: root.form; rows: repeater }
        PushButton {
            objectName: "addStep"
            symbol: "plus.circle.fill"
            text: qsTr("Add Step")
            onClicked: {
                const row = root.editor.steps.append()
                Qt.callLater(() => repeater.itemAt(row).made().takeFocus())
            }
        }
    }
}
