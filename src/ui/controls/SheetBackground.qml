import QtQuick
import Ovrin

/* The surface of sheets and alerts. The soft shadow is drawn as stacked outlines: no renderer leaves it out. */
Item {
    Repeater {
        model: 6
        Rectangle {
            required property int index
            anchors.fill: parent
            anchors.margins: -3 * (index + 1)
            anchors.topMargin: -2 * index
            radius: Theme.radiusSheet + 3 * (index + 1)
            color: Theme.shadow
            opacity: 0.28
        }
    }
    Rectangle {
        objectName: "sheetSurface"
        anchors.fill: parent
        radius: Theme.radiusSheet
        color: Theme.background
    }
}
