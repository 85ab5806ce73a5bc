import QtQuick
import Ovrin

/* The ground of the sidebar, which the window shows before it has anything to put there. */
Rectangle {
    property bool isFolded: false

    width: isFolded ? Theme.sidebarFolded : Math.max(Theme.sidebarMinimum, Theme.sidebarIdeal)
    color: Theme.sidebar
    Rectangle {
        anchors.right: parent.right
        width: Theme.hairline
        height: parent.height
        color: Theme.line
    }
}
