import QtQuick
import Ovrin

FormSection {
    id: root

    required property EditorModel editor
    readonly property Item firstField: title.field

    title: qsTr("Details")
    footnote: editor.isWebPageReadable ? "" : qsTr("The web page is not an address and will be left out.")

    FormRow {
        id: title
        objectName: "titleRow"
        label: qsTr("Title")
        text: root.editor.title
        onEdited: text => root.editor.title = text
    }
    FormRow {
        label: qsTr("Source")
        placeholder: qsTr("e.g. Grandma, Bon Appétit")
        text: root.editor.publisher
        onEdited: text => root.editor.publisher = text
    }
    FormRow {
        label: qsTr("Author")
        placeholder: qsTr("Optional")
        text: root.editor.author
        onEdited: text => root.editor.author = text
    }
    FormRow {
        label: qsTr("Yield")
        text: root.editor.yield
        onEdited: text => root.editor.yield = text
    }
    FormArea {
        label: qsTr("Description")
        text: root.editor.summary
        onEdited: text => root.editor.summary = text
    }
    FormRow {
        label: qsTr("Web page")
        placeholder: "https://"
        isLast: true
        text: root.editor.webPage
        field.inputMethodHints: Qt.ImhUrlCharactersOnly
        onEdited: text => root.editor.webPage = text
    }
}
