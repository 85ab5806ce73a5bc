import QtQuick
import Ovrin

/* One recipe, to be cooked from. */
Window {
    id: window

    required property CookModeViewModel cook

    width: 1200
    height: 860
    minimumWidth: 640
    minimumHeight: 480
    title: cook.isFound ? qsTr("Cook: %1").arg(cook.title) : qsTr("Cook")
    color: Theme.background

    function toggleFullScreen() {
        visibility = visibility === Window.FullScreen ? Window.Windowed : Window.FullScreen
    }

    Shortcut {
        sequence: "F11"
        onActivated: window.toggleFullScreen()
    }
    CookModeView {
        anchors.fill: parent
        visible: window.cook.isFound
        focus: window.cook.isFound
        cook: window.cook
        onCloseRequested: window.close()
    }
    Loader {
        anchors.fill: parent
        active: !window.cook.isFound
        focus: active
        sourceComponent: CookNotFound { onCloseRequested: window.close() }
    }
}
