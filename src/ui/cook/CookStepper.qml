import QtQuick
import Ovrin

/* Large enough for an elbow. */
Column {
    id: stepper

    property bool canMoveUp
    property bool canMoveDown

    signal moveRequested(int count)

    spacing: Theme.gap4

    CookButton {
        objectName: "up"
        width: Theme.stepperSize
        height: Theme.stepperSize
        symbol: "chevron.up"
        hint: qsTr("Previous")
        enabled: stepper.canMoveUp
        onClicked: stepper.moveRequested(-1)
    }
    CookButton {
        objectName: "down"
        width: Theme.stepperSize
        height: Theme.stepperSize
        symbol: "chevron.down"
        hint: qsTr("Next")
        enabled: stepper.canMoveDown
        onClicked: stepper.moveRequested(1)
    }
}
