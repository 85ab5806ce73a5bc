import QtQuick
import Ovrin

/* The ring around what the keyboard is on. `shown` is the only thing its user decides, beside the radius. */
Rectangle {
    property bool shown: parent.visualFocus ?? false
    property real around: Theme.radiusControl
    property int gap: Theme.ringGap

    visible: shown
    anchors.fill: parent
    anchors.margins: -(gap + border.width)
    radius: around + gap + border.width
    color: "transparent"
    border.width: Theme.ringWidth
    border.color: Theme.accent
    Accessible.ignored: true
}
