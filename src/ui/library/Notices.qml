import QtQuick
import Ovrin

/* What is said in passing, at the foot of the window: a deletion that can be undone, a message. */
Column {
    id: notices

    required property LibraryWindow model

    spacing: Theme.gap2

    NoticeBar {
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(implicitWidth, notices.width)
        visible: notices.model.message !== ""
        text: notices.model.message
        onDismissed: notices.model.say("")
        Timer {
            running: notices.model.message !== ""
            interval: 8000
            onTriggered: notices.model.say("")
        }
    }
    NoticeBar {
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(implicitWidth, notices.width)
        visible: notices.model.deletedTitle !== ""
        text: qsTr("Deleted “%1”").arg(notices.model.deletedTitle)
        actionText: qsTr("Undo")
        onActed: notices.model.undoDelete()
        onDismissed: notices.model.dismissDeleted()
    }
}
