import QtQuick
import Ovrin

/* The library window. Its size and place are remembered by the application. */
Window {
    id: window

    required property Appearance appearance
    // Comes when the library has been read.
    property LibraryWindow model: null
    // Of no type that would have its file read for the first frame.
    readonly property var content: contents.item

    width: 1180
    height: 820
    minimumWidth: 640
    minimumHeight: 480
    title: model && model.recipe.isShown ? qsTr("%1 — Ovrin").arg(model.recipe.title) : qsTr("Ovrin")
    color: Theme.background

    Binding { target: Theme; property: "dark"; value: window.appearance.dark }
    Binding { target: Theme; property: "reducedMotion"; value: window.appearance.reducedMotion }
    Binding { target: Theme; property: "textScale"; value: window.appearance.textScale }

    onModelChanged: {
        if (!model)
            return
        contents.setSource("ContentView.qml", {model: model})
        if (active)
            model.becomeActive()
    }
    onActiveChanged: if (active && model) model.becomeActive()
    onClosing: close => {
        if (content && content.hasUnsavedWords) {
            close.accepted = false
            content.askToDiscard(() => window.close())
        }
    }

    Connections {
        id: firstFrame
        target: window
        function onFrameSwapped() {
            if (!window.content)
                return
            firstFrame.enabled = false
            readAhead.start()
        }
    }
    // What is likely to come next is read, on the engine's thread, while nothing else happens.
    Timer {
        id: readAhead
        property var pages: []
        interval: Theme.patience
        onTriggered: pages = ["../recipe/RecipePage.qml", "../editor/EditorSheet.qml", "../importing/ImportSheet.qml",
                              "../controls/TextActions.qml", "CardMenu.qml", "AddMenu.qml"].map(
                     page => Qt.createComponent(page, Component.Asynchronous, window))
    }

    SidebarSurface {
        visible: !contents.item
        height: parent.height
        isFolded: window.width < Theme.sidebarFoldsBelow
        LayoutMirroring.enabled: Qt.application.layoutDirection === Qt.RightToLeft
    }
    Loader {
        id: contents
        anchors.fill: parent
        focus: true
    }
    Connections {
        target: window.content
        function onCloseRequested() { window.close() }
        function onQuitRequested() { window.content.hasUnsavedWords ? window.content.askToDiscard(Qt.quit) : Qt.quit() }
    }
}
