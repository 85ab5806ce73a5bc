import QtQuick
import Ovrin

/* The stops in the middle, the ingredients beside them or in a sheet, the timers over both. */
FocusScope {
    id: view

    required property CookModeViewModel cook
    property bool showsIngredients: false
    /// The cook's own factor on the type that the window's size gives.
    property real zoom: 1
    readonly property real panelWidth: cook.panelWidth(width)
    readonly property real smallestZoom: 0.6
    readonly property real largestZoom: 2.5

    signal closeRequested()

    function move(count) {
        cook.move(count)
        stops.forceActiveFocus(Qt.OtherFocusReason)
    }
    function setZoom(factor) {
        zoom = Math.max(smallestZoom, Math.min(largestZoom, factor))
    }

    Accessible.role: Accessible.Pane
    Accessible.name: cook.title

    Keys.onPressed: event => {
        event.accepted = true
        if (event.key === Qt.Key_Down || event.key === Qt.Key_Space) view.move(1)
        else if (event.key === Qt.Key_Up) view.move(-1)
        else if (event.key === Qt.Key_Escape) view.closeRequested()
        else event.accepted = false
    }
    Shortcut { sequences: [StandardKey.ZoomIn, "Ctrl+="]; onActivated: view.setZoom(view.zoom * 1.1) }
    Shortcut { sequences: [StandardKey.ZoomOut]; onActivated: view.setZoom(view.zoom / 1.1) }
    Shortcut { sequences: ["Ctrl+0"]; onActivated: view.setZoom(1) }

    CookBackground { anchors.fill: parent; cook: view.cook }

    CookBar {
        id: bar
        anchors { top: parent.top; left: parent.left; right: parent.right; margins: Theme.gap5 }
        title: view.cook.title
        hasIngredientsButton: view.panelWidth === 0
        onIngredientsRequested: view.showsIngredients = true
        onCloseRequested: view.closeRequested()
    }
    Rectangle {
        id: panel
        objectName: "ingredientsPanel"
        visible: view.panelWidth > 0
        anchors { left: parent.left; top: bar.bottom; bottom: parent.bottom; margins: Theme.gap5 }
        anchors.topMargin: Theme.gap4
        width: view.panelWidth
        radius: Theme.radiusSheet
        color: Theme.cookPanel
        IngredientChecks {
            anchors.fill: parent
            anchors.margins: Theme.gap5
            heading: qsTr("Ingredients")
            typeScale: Math.max(0.8, Math.min(1.5, stops.typeScale))
            list: view.cook.ingredients
        }
    }
    CookStops {
        id: stops
        objectName: "stops"
        anchors {
            left: panel.visible ? panel.right : parent.left
            right: stepper.left
            top: bar.bottom
            bottom: parent.bottom
            leftMargin: panel.visible ? Theme.gap10 : Theme.gap8
            rightMargin: Theme.gap6
        }
        focus: true
        cook: view.cook
        typeScale: view.zoom * Math.max(0.75, Math.min(2.2, Math.min(width / 680, view.height / 860)))
        onLinkActivated: address => view.cook.openLink(address)
    }
    CookStepper {
        id: stepper
        anchors { right: parent.right; rightMargin: Theme.gap8; verticalCenter: parent.verticalCenter }
        canMoveUp: view.cook.canMoveUp
        canMoveDown: view.cook.canMoveDown
        onMoveRequested: count => view.cook.move(count)
    }
    TimerTray {
        anchors { right: parent.right; bottom: parent.bottom; margins: Theme.gap8 }
        timers: view.cook.timers
        typeScale: Math.max(1, Math.min(stops.typeScale * 1.2, 2))
        maximumHeight: view.height / 2 - Theme.stepperSize * 1.5 - Theme.gap8 * 2
    }
    Sheet {
        id: sheet
        objectName: "ingredientsSheet"
        visible: view.showsIngredients && view.panelWidth === 0
        title: qsTr("Ingredients")
        cancelText: ""
        confirmText: qsTr("Done")
        growing: true
        width: parent ? Math.min(Theme.cookSheetWidth, parent.width - Theme.gap6) : 0
        onConfirmed: view.showsIngredients = false
        onDismissed: view.showsIngredients = false
        onClosed: stops.forceActiveFocus(Qt.OtherFocusReason)
        IngredientChecks {
            anchors.fill: parent
            anchors.margins: Theme.gap5
            list: view.cook.ingredients
        }
    }
}
