import QtQuick
import QtQuick.Templates as T
import Ovrin

/* A menu of ActionItems, as wide as its longest entry. */
T.Menu {
    id: control

    property string label

    property real widestItem: 0

    implicitWidth: Math.max(180, widestItem) + leftPadding + rightPadding
    implicitHeight: contentItem.contentHeight + topPadding + bottomPadding
    padding: Theme.gap1 + 2
    margins: Theme.gap2
    overlap: Theme.gap1

    onAboutToShow: {
        let width = 0
        for (let i = 0; i < count; ++i)
            width = Math.max(width, itemAt(i) ? itemAt(i).implicitWidth : 0)
        widestItem = width
        fade.restart()
    }

    delegate: ActionItem {}
    contentItem: ListView {
        // What lies over the window does not inherit this from it.
        LayoutMirroring.enabled: Qt.application.layoutDirection === Qt.RightToLeft
        LayoutMirroring.childrenInherit: true
        implicitHeight: contentHeight
        model: control.contentModel
        interactive: control.window ? contentHeight + control.topPadding + control.bottomPadding > control.window.height : false
        clip: true
        currentIndex: control.currentIndex
        keyNavigationEnabled: true
    }
    Binding { target: control.contentItem.parent?.Accessible ?? null; property: "name"; value: control.label }
    background: Item {
        Rectangle {
            anchors.fill: parent
            anchors.margins: -3
            anchors.topMargin: 1
            radius: Theme.radiusCard
            color: Theme.shadow
        }
        Rectangle {
            anchors.fill: parent
            radius: Theme.radiusCard - 2
            color: Theme.card
            border.width: Theme.hairline
            border.color: Theme.line
        }
    }
    // Not its own transition, which would keep the keyboard from it until it is through.
    FadeIn { id: fade; target: control; duration: Theme.quick }
}
