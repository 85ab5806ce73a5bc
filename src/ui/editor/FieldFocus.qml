import QtQuick
import Ovrin

/* The frame around the row of a card that is being typed in. */
Rectangle {
    property bool shown: false

    visible: shown
    anchors.fill: parent
    radius: Theme.radiusCard - 2
    color: "transparent"
    border.width: Theme.ringWidth
    border.color: Theme.accent
    Accessible.ignored: true
}
