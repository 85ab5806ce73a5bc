import QtQuick
import Ovrin

/* The running timers, one capsule each, over whatever is cooked or read. Nothing is there while none runs. */
ListView {
    id: tray

    /// A CookTimers.
    required property var timers
    property real maximumHeight: 400
    /// For a tray that is read from afar.
    property real typeScale: 1
    readonly property int capsuleHeight: Math.round(Theme.capsuleHeight * typeScale)
    /// Whole capsules only, and always one.
    readonly property int rows: Math.max(1, Math.min(count, Math.floor((maximumHeight + spacing)
                                                                     / (capsuleHeight + spacing))))

    visible: count > 0
    width: Math.round(Theme.capsuleMaximum * typeScale)
    height: rows * (capsuleHeight + spacing) - spacing
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
        height: tray.capsuleHeight
        typeScale: tray.typeScale
        onStopRequested: tray.timers.cancel(timerId)
    }
}
