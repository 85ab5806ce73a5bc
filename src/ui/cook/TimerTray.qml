import QtQuick
import Ovrin

/* The running timers, one capsule each, over whatever is cooked or read. Nothing is there while none runs. */
ListView {
    id: tray

    /// A CookTimers.
    required property var timers
    property real maximumHeight: 400
    /// Whole capsules only, and always one.
    readonly property int rows: Math.max(1, Math.min(count, Math.floor((maximumHeight + spacing)
                                                                     / (Theme.capsuleHeight + spacing))))

    visible: count > 0
    width: Theme.capsuleMaximum
    height: rows * (Theme.capsuleHeight + spacing) - spacing
    model: timers
    spacing: Theme.gap2
    clip: contentHeight > height
    boundsBehavior: Flickable.StopAtBounds
    interactive: contentHeight > height
    cacheBuffer: 0
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Timers")

    onCountChanged: Qt.callLater(positionViewAtEnd)

    Timer {
        // Twice a second, so that no second of the countdown is skipped.
        interval: 500
        repeat: true
        running: tray.visible
        onTriggered: tray.timers.refresh()
    }
    delegate: TimerCapsule {
        width: ListView.view.width
        onStopRequested: tray.timers.cancel(timerId)
    }
}
