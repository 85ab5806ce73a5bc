import QtQuick
import QtQuick.Dialogs
import QtQuick.Window
import Ovrin

/* In place of the library window when the library cannot be opened. `chosen` is what to open instead. */
Window {
    id: window

    required property Appearance appearance
    required property string problem
    required property string folder
    property url chosen

    visible: true
    width: 560
    height: Math.ceil(column.implicitHeight) + 2 * column.y
    minimumWidth: width
    minimumHeight: height
    title: qsTr("Ovrin")
    color: Theme.background

    Binding { target: Theme; property: "dark"; value: window.appearance.dark }
    Binding { target: Theme; property: "reducedMotion"; value: window.appearance.reducedMotion }
    Binding { target: Theme; property: "textScale"; value: window.appearance.textScale }

    Shortcut { sequences: ["Ctrl+Q", "Escape"]; onActivated: window.close() }

    Column {
        id: column
        x: Theme.gap8
        y: Theme.gap8
        width: parent.width - 2 * x
        spacing: Theme.gap3

        Symbol {
            size: Theme.symbolLarge
            name: "exclamationmark.triangle"
            color: Theme.accent
        }
        PlainText {
            width: parent.width
            text: qsTr("Couldn’t Open the Recipe Library")
            font: Theme.title
            Accessible.role: Accessible.Heading
        }
        PlainText {
            width: parent.width
            text: window.problem
            lineHeight: Theme.leading
        }
        PlainText {
            width: parent.width
            text: window.folder
            font: Theme.secondaryText
            color: Theme.secondary
            wrapMode: Text.WrapAnywhere
            maximumLineCount: 6
            elide: Text.ElideRight
        }
        PlainText {
            width: parent.width
            text: qsTr("Nothing there was changed. You can quit and put it right, or use a library in another folder for now.")
            color: Theme.secondary
            lineHeight: Theme.leading
        }
        Item { width: 1; height: Theme.gap2 }
        Flow {
            width: parent.width
            spacing: Theme.gap2
            layoutDirection: Qt.RightToLeft
            PushButton {
                kind: "primary"
                text: qsTr("Choose Another Folder…")
                onClicked: dialog.open()
            }
            PushButton {
                text: qsTr("Quit")
                focus: true
                onClicked: window.close()
            }
        }
    }
    FolderDialog {
        id: dialog
        title: qsTr("Choose a Folder for the Library")
        onAccepted: {
            window.chosen = selectedFolder
            window.close()
        }
    }
}
