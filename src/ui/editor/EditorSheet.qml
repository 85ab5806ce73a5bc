import QtQuick
import QtQuick.Templates as T
import Ovrin

/* The one form in which a recipe is written, changed or reviewed. */
Item {
    id: root

    required property LibraryWindow model
    readonly property EditorModel editor: model.editor
    property var afterDiscarding: null

    function askToDiscard(then) {
        afterDiscarding = then
        discarding.open()
    }

    Sheet {
        id: sheet
        visible: true
        growing: true
        title: root.editor.heading
        confirmText: qsTr("Save")
        firstField: details.firstField
        onConfirmed: root.editor.save()
        onCancelled: root.editor.cancel()
        onDismissed: root.editor.isChanged ? root.askToDiscard(null) : root.editor.cancel()

        Flickable {
            id: form
            objectName: "editorForm"

            // The field that has the keyboard is never hidden below or above the edge.
            function reveal(item) {
                if (!item)
                    return
                const top = item.mapToItem(contentItem, 0, 0).y
                if (top < contentY + Theme.gap4)
                    contentY = Math.max(0, top - Theme.gap10)
                else if (top + item.height > contentY + height - Theme.gap4)
                    contentY = Math.min(Math.max(0, contentHeight - height), top + Math.min(item.height, height) - height + Theme.gap10)
            }

            anchors.fill: parent
            contentHeight: column.height + 2 * Theme.gap5
            boundsBehavior: Flickable.StopAtBounds
            clip: true
            T.ScrollBar.vertical: ScrollBar {}

            Connections {
                target: form.Window.window
                function onActiveFocusItemChanged() {
                    const item = form.Window.activeFocusItem
                    for (let parent = item; parent; parent = parent.parent)
                        if (parent === column)
                            form.reveal(item)
                }
            }

            Column {
                id: column
                x: Theme.gap7
                y: Theme.gap5
                width: form.width - 2 * Theme.gap7
                spacing: Theme.gap5

                EditorNotice {
                    width: parent.width
                    visible: text !== ""
                    text: root.editor.notice
                    more: root.model.isReviewing && root.model.waitingDrafts > 0
                          ? qsTr("%n more waiting for review.", "", root.model.waitingDrafts) : ""
                }
                EditorPhoto {
                    width: parent.width
                    editor: root.editor
                }
                EditorDetails {
                    id: details
                    width: parent.width
                    editor: root.editor
                }
                EditorTimes {
                    width: parent.width
                    editor: root.editor
                }
                EditorIngredients {
                    objectName: "editorIngredients"
                    width: parent.width
                    form: form
                    editor: root.editor
                }
                EditorDirections {
                    width: parent.width
                    form: form
                    editor: root.editor
                }
            }
        }
    }
    Alert {
        id: discarding
        title: qsTr("Discard your changes?")
        message: qsTr("What you have written in “%1” is not saved yet.").arg(root.editor.heading)
        confirmText: qsTr("Discard")
        cancelText: qsTr("Keep Editing")
        destructive: true
        onConfirmed: {
            const then = root.afterDiscarding
            root.editor.cancel()
            if (then)
                then()
        }
    }
}
