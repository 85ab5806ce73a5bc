import QtQuick
import Ovrin

FormSection {
    id: root

    required property EditorModel editor

    title: qsTr("Time (minutes)")
    framed: false

    Row {
        id: fields
        readonly property real each: (root.width - 2 * spacing) / 3
        spacing: Theme.gap3
        MinutesField {
            width: fields.each
            label: qsTr("Prep")
            text: root.editor.prepMinutes
            onEdited: text => root.editor.prepMinutes = text
        }
        MinutesField {
            width: fields.each
            label: qsTr("Cook")
            text: root.editor.cookMinutes
            onEdited: text => root.editor.cookMinutes = text
        }
        MinutesField {
            width: fields.each
            label: qsTr("Total")
            text: root.editor.totalMinutes
            onEdited: text => root.editor.totalMinutes = text
        }
    }
}
