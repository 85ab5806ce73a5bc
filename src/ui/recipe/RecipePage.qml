import QtQuick
import QtQuick.Templates as T
import Ovrin

/* One recipe: its header, and ingredients and directions beside or below each other. */
FocusScope {
    id: page
    objectName: "recipePage"

    required property LibraryWindow model
    readonly property RecipeViewModel recipe: model.recipe
    readonly property bool isWide: width > 760
    readonly property int margin: isWide ? Theme.gap10 : Theme.gap5
    readonly property bool hasSheet: notes.isOpen || deletion.opened
    readonly property real ingredientsWidth: isWide ? Math.min(width * 0.36, 380) : body.width

    signal shortcutsRequested()

    function takeFocus() { scroller.forceActiveFocus(Qt.OtherFocusReason) }

    Accessible.role: Accessible.Pane
    Accessible.name: recipe.title

    Rectangle { anchors.fill: parent; color: Theme.background }

    Flickable {
        id: scroller
        objectName: "recipeScroller"

        function scrollBy(distance) {
            contentY = Math.max(0, Math.min(contentHeight - height, contentY + distance))
        }
        function reveal(item) {
            const top = item.mapToItem(contentItem, 0, 0).y
            if (top < contentY + Theme.gap10 || top + item.height > contentY + height - Theme.gap10)
                contentY = Math.max(0, Math.min(contentHeight - height, top - height / 3))
        }

        anchors.fill: parent
        focus: true
        contentHeight: column.height
        boundsBehavior: Flickable.StopAtBounds
        T.ScrollBar.vertical: ScrollBar {}
        Keys.onDownPressed: scrollBy(60)
        Keys.onUpPressed: scrollBy(-60)
        Keys.onSpacePressed: scrollBy(height * 0.85)
        Keys.onEscapePressed: page.model.goBack()
        Keys.onPressed: event => {
            event.accepted = true
            if (event.key === Qt.Key_PageDown) scrollBy(height * 0.85)
            else if (event.key === Qt.Key_PageUp) scrollBy(-height * 0.85)
            else if (event.key === Qt.Key_Home) contentY = 0
            else if (event.key === Qt.Key_End) scrollBy(contentHeight)
            else event.accepted = false
        }

        Column {
            id: column
            width: page.width

            RecipeHeader {
                width: parent.width
                margin: page.margin
                model: page.model
            }
            Item {
                id: body
                anchors.horizontalCenter: parent.horizontalCenter
                width: Math.min(page.width, Theme.contentMaximum) - 2 * page.margin
                height: footer.y + footer.height + Theme.gap8

                PlainText {
                    id: summary
                    visible: text !== ""
                    x: page.LayoutMirroring.enabled ? parent.width - width : 0
                    y: text === "" ? 0 : Theme.gap8
                    width: Math.min(parent.width, 760 * Theme.textScale)
                    height: text === "" ? 0 : implicitHeight
                    text: page.recipe.summary
                    color: Theme.secondary
                    lineHeight: Theme.leading
                }
                IngredientsSection {
                    id: ingredients
                    y: summary.y + summary.height + Theme.gap8
                    x: page.LayoutMirroring.enabled && page.isWide ? parent.width - width : 0
                    width: page.ingredientsWidth
                    model: page.model
                }
                DirectionsSection {
                    id: directions
                    x: !page.isWide ? 0 : page.LayoutMirroring.enabled ? 0 : ingredients.width + Theme.gap12
                    y: page.isWide ? ingredients.y : ingredients.y + ingredients.height + Theme.gap10
                    width: page.isWide ? parent.width - ingredients.width - Theme.gap12 : parent.width
                    model: page.model
                    onLinkFocused: item => scroller.reveal(item)
                }
                Flow {
                    id: footer
                    y: Math.max(ingredients.y + ingredients.height, directions.y + directions.height) + Theme.gap10
                    width: parent.width
                    spacing: Theme.gap2 + 2
                    PushButton {
                        visible: page.model.canCook
                        kind: "primary"
                        symbol: "frying.pan"
                        text: qsTr("Start Cooking")
                        onClicked: page.model.cook()
                    }
                    PushButton {
                        objectName: "cooked"
                        symbol: page.recipe.isCooked ? "checkmark.seal.fill" : "checkmark.seal"
                        text: page.recipe.cookedLabel
                        onClicked: page.recipe.recordCook()
                    }
                    PushButton {
                        objectName: "notes"
                        symbol: "note.text"
                        text: page.recipe.notes === "" ? qsTr("Add Notes") : qsTr("Edit Notes")
                        onClicked: notes.open()
                    }
                }
            }
        }
    }
    RecipeToolbar {
        width: parent.width
        margin: page.isWide ? Theme.gap6 - 2 : Theme.gap4
        model: page.model
        onGroceryFileRequested: groceryFile.made({model: page.model}).open()
        onDeleteRequested: deletion.open()
        onShortcutsRequested: page.shortcutsRequested()
    }
    Loader {
        active: page.model.timers !== null
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: Theme.gap6
        sourceComponent: TimerTray {
            timers: page.model.timers
            maximumHeight: page.height / 2
        }
    }
    Deferred { id: groceryFile; view: Qt.resolvedUrl("GroceryFileDialog.qml") }
    NotesSheetLoader { id: notes; objectName: "notesSheet"; model: page.model }
    Alert {
        id: deletion
        title: qsTr("Delete “%1”?").arg(page.recipe.title.length > 120 ? page.recipe.title.substring(0, 120) + "…"
                                                                       : page.recipe.title)
        message: qsTr("It goes from your library, with its photo and notes. You can undo this until you close the window.")
        confirmText: qsTr("Delete")
        destructive: true
        onConfirmed: page.model.deleteRecipe(page.recipe.recipeId)
    }
    Connections {
        target: page.model
        function onIngredientWanted(row) {
            const line = ingredients.lineAt(row)
            if (!line)
                return
            column.forceLayout()
            scroller.reveal(line)
            line.light()
        }
    }
    Connections {
        target: page.Window.window
        function onFrameSwapped() { page.recipe.showMore() }
    }
    Connections {
        target: page.recipe
        function onShown() { scroller.contentY = 0 }
    }
}
