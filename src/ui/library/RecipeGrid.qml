import QtQuick
import QtQuick.Templates as T
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
    signal shortcutsRequested()

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
                view.currentIndex = 0
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
            onClicked: addMenu.made({grid: root, label: hint}).popup(add, 0, add.height + Theme.gap1)
            Deferred { id: addMenu; view: Qt.resolvedUrl("AddMenu.qml") }
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
        readonly property RecipeCard hoveredCard: hover.hovered && contentY > -Infinity ? cardAt(hover.point.position) : null
        property real lift: 0

        // The card at a place of the content; null between the cards.
        function cardAt(position) {
            const item = itemAt(position.x, position.y)
            return item && item.contains(item.mapFromItem(contentItem, position)) ? item : null
        }
        function open(card) {
            if (!card)
                return
            currentIndex = card.index
            showsRing = false
            root.model.openRecipe(card.recipeId)
        }
        function showMenuAt(position) {
            const card = cardAt(position)
            if (!card)
                return
            currentIndex = card.index
            const at = card.mapFromItem(contentItem, position)
            showMenu(card, at.x, at.y)
        }
        function showMenuOfCurrent() {
            // What came and went since the last frame is not laid out yet, and the card may be another one.
            forceLayout()
            showMenu(currentItem, Theme.gap6, Theme.gap6)
        }
        function showMenu(item, x, y) {
            if (!item)
                return
            const menu = cardMenu.made({model: root.model})
            menu.card = item
            // Over the grid, which stays: a card may go and come again with what the menu does.
            const at = item.mapToItem(view, x, y)
            menu.popup(view, at.x, at.y)
        }

        anchors.top: bar.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        // A card lies at the left of its cell, also from right to left, where the margins change sides.
        anchors.leftMargin: root.margin - (LayoutMirroring.enabled ? Theme.cardColumnGap : 0)
        anchors.rightMargin: root.margin - (LayoutMirroring.enabled ? 0 : Theme.cardColumnGap)
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
        onHoveredCardChanged: if (hoveredCard) lifting.restart()
        Keys.onReturnPressed: if (currentItem) currentItem.open()
        Keys.onEnterPressed: if (currentItem) currentItem.open()
        Keys.onSpacePressed: if (currentItem) currentItem.open()
        Keys.onDeletePressed: if (currentItem) root.model.deleteRecipe(currentItem.recipeId)
        Keys.onMenuPressed: showMenuOfCurrent()
        Keys.onPressed: event => {
            if (event.key === Qt.Key_F10 && (event.modifiers & Qt.ShiftModifier)) {
                showMenuOfCurrent()
                event.accepted = true
            }
        }

        delegate: RecipeCard {
            width: view.cardWidth
            height: view.cellHeight - Theme.cardRowGap
            photoHeight: view.photoHeight
            onOpened: view.open(this)
        }

        HoverHandler { id: hover }
        TapHandler { onTapped: point => view.open(view.cardAt(point.position)) }
        TapHandler {
            acceptedButtons: Qt.RightButton
            onTapped: point => view.showMenuAt(point.position)
        }
        TapHandler {
            acceptedDevices: PointerDevice.TouchScreen
            onLongPressed: view.showMenuAt(point.position)
        }
        Rectangle {
            z: -1
            visible: view.hoveredCard !== null
            x: visible ? view.hoveredCard.x - 3 : 0
            y: visible ? view.hoveredCard.y + 3 : 0
            width: view.cardWidth + 6
            height: view.photoHeight + 4
            radius: Theme.radiusCard + 4
            color: Theme.shadow
        }
        Binding {
            target: view.hoveredCard
            when: view.hoveredCard !== null
            property: "lift"
            value: view.lift
        }
        NumberAnimation {
            id: lifting
            target: view
            property: "lift"
            from: 0
            to: 2
            duration: Theme.quick
            easing.type: Easing.OutCubic
        }
        Item {
            z: 1
            visible: view.activeFocus && view.showsRing && view.currentItem !== null
            x: visible ? view.currentItem.x : 0
            y: visible ? view.currentItem.y : 0
            width: view.cardWidth
            height: view.photoHeight
            FocusRing {
                shown: true
                around: Theme.radiusCard
                gap: 3
                border.width: 3
            }
        }
        T.ScrollBar.vertical: ScrollBar {}
    }

    Deferred { id: cardMenu; view: Qt.resolvedUrl("CardMenu.qml") }
    Loader {
        active: view.count === 0
        anchors.fill: parent
        anchors.topMargin: bar.height
        Component.onCompleted: setSource("EmptyState.qml", {model: root.model})
        onLoaded: item.importRequested.connect(root.importRequested)
    }
}
