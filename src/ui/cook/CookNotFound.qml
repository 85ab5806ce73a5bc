import QtQuick
import Ovrin

/* In place of a recipe that is not, or no longer, there. */
FocusScope {
    id: view

    signal closeRequested()

    focus: true
    Keys.onEscapePressed: closeRequested()

    Column {
        anchors.centerIn: parent
        spacing: Theme.gap4
        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            name: "fork.knife"
            size: Theme.symbolLarge
            color: Theme.secondary
        }
        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("Recipe Not Found")
            font: Theme.title
            Accessible.role: Accessible.Heading
        }
        PushButton {
            anchors.horizontalCenter: parent.horizontalCenter
            focus: true
            text: qsTr("Close")
            onClicked: view.closeRequested()
        }
    }
}
