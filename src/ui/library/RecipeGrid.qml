import QtQuick
import QtQuick.Controls.Basic as Basic
import Ovrin

/* The recipes as cards, with the search above them. The grid is one stop of the Tab key; arrows move in it. */
FocusScope {
    id: root

    required property LibraryWindow model
    readonly property int margin: width < 620 ? Theme.gap5 : Theme.gap7
    readonly property GridView view: view

    signal importRequested()
    signal fileRequested()
    signal photoRequested()

    function search() { search.forceActiveFocus(Qt.ShortcutFocusReason); search.selectAll() }
    function takeFocus() { (view.count > 0 ? view : search).forceActiveFocus(Qt.OtherFocusReason) }

    Accessible.role: Accessible.Pane
    Accessible.name: root.model.library.filter

    Item {
        id: bar
        width: parent.width
        height: Math.round(68 * Theme.textScale)
        PlainText {
            id: title
            anchors.left: parent.left
            anchors.leftMargin: root.margin
            anchors.right: search.left
            anchors.rightMargin: Theme.gap4
            anchors.verticalCenter: parent.verticalCenter
            text: root.model.library.filter
            font: Theme.title
            elide: Text.ElideRight
            wrapMode: Text.NoWrap
            Accessible.role: Accessible.Heading
        }
        SearchField {
            id: search
            objectName: "search"
            anchors.right: add.left
            anchors.rightMargin: Theme.gap3
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(260 * Theme.textScale, root.width * 0.42)
            placeholderText: qsTr("Recipes or ingredients")
            text: root.model.library.search
            onTextChanged: {
                root.model.library.search = text
                view.positionViewAtBeginning()
            }
            onLeftDownwards: if (view.count > 0) view.forceActiveFocus(Qt.TabFocusReason)
        }
        PushButton {
            id: add
            objectName: "add"
            anchors.right: parent.right
            anchors.rightMargin: root.margin
            anchors.verticalCenter: parent.verticalCenter
            symbol: "plus"
            hint: qsTr("Add a recipe")
            Accessible.role: Accessible.ButtonMenu
            onClicked: addMenu.popup(add, 0, add.height + Theme.gap1)
            ActionMenu {
                id: addMenu
                label: add.hint
                ActionItem {
                    text: qsTr("Import from Web…"); symbol: "safari"; shortcutText: qsTr("Ctrl+I")
                    onTriggered: root.importRequested()
                }
                ActionItem {
                    visible: root.model.canImportFiles
                    text: qsTr("Import PDF or Image…"); symbol: "doc.text.viewfinder"; shortcutText: qsTr("Ctrl+O")
                    onTriggered: root.fileRequested()
                }
                ActionItem {
                    visible: root.model.canImportPictures
                    text: qsTr("Import Screenshot or Photo…"); symbol: "photo.on.rectangle"
                    onTriggered: root.photoRequested()
                }
                ActionSeparator {}
                ActionItem {
                    text: qsTr("New Recipe"); symbol: "square.and.pencil"; shortcutText: qsTr("Ctrl+N")
                    onTriggered: root.model.createRecipe()
                }
            }
        }
    }

    GridView {
        id: view
        objectName: "grid"

        // Its width holds one gap more than there are between the columns.
        readonly property int columns: Math.max(1, Math.floor(width / (Theme.cardMinimum + Theme.cardColumnGap)))
        readonly property int cardWidth: Math.min(Theme.cardMaximum, cellWidth - Theme.cardColumnGap)
        readonly property int photoHeight: Math.round(cardWidth * 3 / 4)
        // Nobody looks for the keyboard before it was used: the ring shows once the focus comes by it.
        property bool showsRing: false

        function showMenu(item, x, y) {
            if (!item)
                return
            cardMenu.target = item
            cardMenu.popup(item, x, y)
        }

        anchors.top: bar.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.leftMargin: root.margin
        anchors.rightMargin: root.margin - Theme.cardColumnGap
        topMargin: Theme.gap2
        bottomMargin: Theme.gap10
        cellWidth: Math.floor((width) / columns)
        cellHeight: photoHeight + Math.round(74 * Theme.textScale) + Theme.cardRowGap
        cacheBuffer: cellHeight
        clip: true
        focus: true
        activeFocusOnTab: true
        keyNavigationEnabled: true
        boundsBehavior: Flickable.StopAtBounds
        model: root.model.library
        visible: count > 0
        highlightMoveDuration: 0
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Recipes")

        onActiveFocusChanged: if (!activeFocus) showsRing = true
        onCurrentIndexChanged: if (activeFocus) showsRing = true
        Keys.onReturnPressed: if (currentItem) currentItem.open()
        Keys.onEnterPressed: if (currentItem) currentItem.open()
        Keys.onSpacePressed: if (currentItem) currentItem.open()
        Keys.onDeletePressed: if (currentItem) root.model.deleteRecipe(currentItem.recipeId)
        Keys.onMenuPressed: showMenu(currentItem, Theme.gap6, Theme.gap6)
        Keys.onPressed: event => {
            if (event.key === Qt.Key_F10 && (event.modifiers & Qt.ShiftModifier)) {
                showMenu(currentItem, Theme.gap6, Theme.gap6)
                event.accepted = true
            }
        }

        delegate: RecipeCard {
            width: view.cardWidth
            height: view.cellHeight - Theme.cardRowGap
            photoHeight: view.photoHeight
            hasRing: GridView.isCurrentItem && view.activeFocus && view.showsRing
            onOpened: {
                view.currentIndex = index
                view.showsRing = false
                root.model.openRecipe(recipeId)
            }
            onMenuRequested: (x, y) => {
                view.currentIndex = index
                view.showMenu(this, x, y)
            }
        }
        Basic.ScrollBar.vertical: ScrollBar {}
    }

    ActionMenu {
        id: cardMenu
        property Item target
        label: target ? target.title : ""
        ActionItem {
            readonly property bool isSaved: cardMenu.target ? cardMenu.target.isSaved : false
            text: isSaved ? qsTr("Unsave") : qsTr("Save")
            symbol: isSaved ? "bookmark.slash" : "bookmark"
            onTriggered: root.model.toggleSaved(cardMenu.target.recipeId)
        }
        ActionItem {
            visible: cardMenu.target ? cardMenu.target.hasPage : false
            text: qsTr("Open Original Page"); symbol: "safari"
            onTriggered: root.model.openPage(cardMenu.target.recipeId)
        }
        ActionItem {
            text: qsTr("Delete"); symbol: "trash"; destructive: true
            shortcutText: qsTr("Del")
            onTriggered: root.model.deleteRecipe(cardMenu.target.recipeId)
        }
    }

    EmptyState {
        anchors.fill: parent
        anchors.topMargin: bar.height
        visible: view.count === 0
        model: root.model
        onImportRequested: root.importRequested()
    }
}
