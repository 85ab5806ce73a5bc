import QtQuick
import Ovrin

/* The sheet in which the address of a recipe page is typed. */
Item {
    id: root

    required property LibraryWindow model

    signal closed()

    Sheet {
        id: sheet

        function start() {
            if (!root.model.importSheet.canImport)
                return
            root.closed()
            root.model.startImport()
        }

        visible: true
        title: qsTr("Import Recipe")
        confirmText: qsTr("Import")
        canConfirm: root.model.importSheet.canImport
        firstField: field
        onConfirmed: start()
        onDismissed: root.closed()
        onCancelled: root.closed()

        Column {
            width: parent.width
            padding: Theme.gap6
            spacing: Theme.gap3
            readonly property int inner: width - 2 * padding

            PlainText {
                width: parent.inner
                text: qsTr("Recipe Web Page")
                font: Theme.secondaryStrong
                color: Theme.secondary
                Accessible.ignored: true
            }
            InputField {
                id: field
                objectName: "address"
                width: parent.inner
                label: qsTr("Recipe Web Page")
                placeholderText: "https://"
                text: root.model.importSheet.address
                inputMethodHints: Qt.ImhUrlCharactersOnly | Qt.ImhNoPredictiveText | Qt.ImhNoAutoUppercase
                onTextChanged: root.model.importSheet.address = text
                onAccepted: sheet.start()
            }
            PlainText {
                width: parent.inner
                text: qsTr("Works with most recipe sites. Ingredients, directions, times and the photo are brought in for you.")
                font: Theme.secondaryText
                color: Theme.secondary
                lineHeight: 1.35
            }
            PlainText {
                width: parent.inner
                text: qsTr("Tip: in Safari, choose File › Share › Ovrin, or drag a link onto the Ovrin window.")
                font: Theme.secondaryText
                color: Theme.secondary
                lineHeight: 1.35
            }
        }
    }
}
