import QtQuick
import Ovrin

/* Lets a popup come up softly. */
NumberAnimation {
    property: "opacity"
    from: 0
    to: 1
    easing.type: Easing.OutCubic
}
