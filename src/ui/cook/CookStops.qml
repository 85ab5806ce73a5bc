import QtQuick
import Ovrin

/* The stops in one column. The current one comes to the middle on a spring; scrolling by hand leaves it alone. */
ListView {
    id: view

    required property CookModeViewModel cook
    property real typeScale: 1
    /// Whether the current stop is kept in the middle. Not any more once the cook has scrolled away from it.
    property bool isKept: true

    signal linkActivated(string address)

    /// Where the column has to be for the current stop to stand in the middle, or at the top where it is taller.
    function restingPlace() {
        const item = currentItem
        return item ? item.y + Math.min((item.height - height) / 2, 0) : contentY
    }
    function rest() {
        forceLayout()
        positionViewAtIndex(currentIndex, ListView.Contain)
        spring.jump(restingPlace())
    }
    /// The stops around the current one, or it itself, have changed their size.
    function settle() {
        if (isKept && !spring.moving)
            Qt.callLater(rest)
    }
    function leave(place) {
        isKept = false
        spring.jump(place)
    }
    function go() {
        isKept = true
        if (!spring.moving)
            spring.jump(contentY)
        if (Theme.reducedMotion)
            Qt.callLater(rest)
        else
            spring.aim(restingPlace())
    }

    clip: true
    model: cook.stops
    currentIndex: cook.current
    highlightFollowsCurrentItem: false
    // Tab goes on from the nearest item that it can reach itself.
    activeFocusOnTab: true
    // The keys move the current stop, which is the view model's.
    keyNavigationEnabled: false
    cacheBuffer: Math.max(0, height)
    boundsBehavior: Flickable.StopAtBounds
    spacing: Theme.gap8
    header: Item { height: view.height / 2 }
    footer: Item { height: view.height / 2 }
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Directions")

    onCurrentItemChanged: go()
    onHeightChanged: Qt.callLater(rest)
    onWidthChanged: Qt.callLater(rest)
    onTypeScaleChanged: Qt.callLater(rest)
    onMovementStarted: leave(contentY)
    Component.onCompleted: Qt.callLater(rest)

    Keys.onPressed: event => {
        if (event.key !== Qt.Key_PageDown && event.key !== Qt.Key_PageUp)
            return
        event.accepted = true
        const bottom = originY + contentHeight - height
        const way = (event.key === Qt.Key_PageDown ? 0.8 : -0.8) * height
        leave(Math.max(originY, Math.min(bottom, contentY + way)))
    }

    Connections {
        target: view.currentItem
        function onYChanged() { view.settle() }
        function onHeightChanged() { view.settle() }
    }
    StopSpring {
        id: spring
        onValueChanged: view.contentY = value
    }
    FrameAnimation {
        running: spring.moving
        onTriggered: {
            // The stops change their size under way.
            spring.follow(view.restingPlace())
            spring.advance(Math.min(frameTime, 0.1))
        }
    }
    delegate: CookStop {
        width: ListView.view.width
        stops: view.cook.stops
        isCurrent: ListView.isCurrentItem
        typeScale: view.typeScale
        onTapped: view.cook.select(index)
        onLinkActivated: address => view.linkActivated(address)
    }
}
