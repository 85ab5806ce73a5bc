import QtQuick
import Ovrin

/* A list of the shortcuts. */
Item {
    id: root

    required property LibraryWindow model

    signal closed()

    Sheet {
        visible: true
        title: qsTr("Keyboard Shortcuts")
        cancelText: ""
        confirmText: qsTr("Done")
        onConfirmed: root.closed()
        onDismissed: root.closed()

        Column {
            width: parent.width
            padding: Theme.gap5
            Repeater {
                model: [
                    [qsTr("New recipe"), qsTr("Ctrl+N")], [qsTr("Import from web"), qsTr("Ctrl+I")],
                    [qsTr("Import file"), qsTr("Ctrl+O")], [qsTr("Import a link or picture you copied"), qsTr("Ctrl+V")],
                    [qsTr("Search"), qsTr("Ctrl+F")], [qsTr("Edit the recipe"), qsTr("Ctrl+E")],
                    [qsTr("Start cooking"), qsTr("Ctrl+Return")], [qsTr("Back"), qsTr("Alt+Left")],
                    [qsTr("Delete the selected recipe"), qsTr("Delete")], [qsTr("Undo deleting"), qsTr("Ctrl+Z")],
                    [qsTr("Confirm a sheet"), qsTr("Ctrl+Return")], [qsTr("Move an ingredient"), qsTr("Alt+Up, Alt+Down")],
                    [qsTr("Fill the screen, while cooking"), qsTr("F11")], [qsTr("Close the window"), qsTr("Ctrl+W")],
                    [qsTr("Quit"), qsTr("Ctrl+Q")]
                ].filter(row => (root.model.canCook || (row[0] !== qsTr("Start cooking") && row[1] !== qsTr("F11")))
                               && (root.model.canImportFiles || row[0] !== qsTr("Import file")))
                Item {
                    required property var modelData
                    width: parent.width - 2 * Theme.gap5
                    height: Math.round(30 * Theme.textScale)
                    Accessible.role: Accessible.ListItem
                    Accessible.name: qsTr("%1: %2").arg(modelData[0]).arg(modelData[1])
                    PlainText {
                        anchors.left: parent.left
                        anchors.verticalCenter: parent.verticalCenter
                        text: parent.modelData[0]
                        font: Theme.input
                        Accessible.ignored: true
                    }
                    PlainText {
                        anchors.right: parent.right
                        anchors.verticalCenter: parent.verticalCenter
                        text: parent.modelData[1]
                        font: Theme.secondaryText
                        color: Theme.secondary
                        Accessible.ignored: true
                    }
                }
            }
        }
    }
}
