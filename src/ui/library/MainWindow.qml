import QtQuick
import Ovrin

/* The library window. Its size and place are remembered by the application. */
Window {
    id: window

    required property LibraryWindow model

    width: 1180
    height: 820
    minimumWidth: 640
    minimumHeight: 480
    title: model.recipe.isShown ? qsTr("%1 — Ovrin").arg(model.recipe.title) : qsTr("Ovrin")
    color: Theme.background

    Binding { target: Theme; property: "dark"; value: window.model.appearance.dark }
    Binding { target: Theme; property: "reducedMotion"; value: window.model.appearance.reducedMotion }
    Binding { target: Theme; property: "textScale"; value: window.model.appearance.textScale }

    onActiveChanged: if (active) model.becomeActive()
    onClosing: close => {
        if (content.hasUnsavedWords) {
            close.accepted = false
            content.askToDiscard(() => window.close())
        }
    }

    Connections {
        id: firstFrame
        target: window
        function onFrameSwapped() {
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

    ContentView {
        id: content
        anchors.fill: parent
        model: window.model
        focus: true
        onCloseRequested: window.close()
        onQuitRequested: hasUnsavedWords ? askToDiscard(Qt.quit) : Qt.quit()
    }
}
