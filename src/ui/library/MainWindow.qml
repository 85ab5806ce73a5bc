import QtQuick
import QtQuick.Window
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

    ContentView {
        id: content
        anchors.fill: parent
        model: window.model
        focus: true
        onCloseRequested: window.close()
        onQuitRequested: hasUnsavedWords ? askToDiscard(Qt.quit) : Qt.quit()
    }
}
