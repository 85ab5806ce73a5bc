import QtQuick
import Ovrin

/* The filters, and at the foot what is being imported. Folded it is a strip of symbols. */
FocusScope {
    id: sidebar

    required property LibraryWindow model
    property bool isFolded: false

    width: surface.width

    SidebarSurface { id: surface; height: parent.height; isFolded: sidebar.isFolded }
    PlainText {
        id: brand
        visible: !sidebar.isFolded
        x: Theme.gap5 + 2
        y: Theme.gap6 - 1
        text: qsTr("Ovrin")
        font: Theme.brand
        Accessible.role: Accessible.Heading
    }
    Column {
        id: filters
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: Theme.gap3
        y: Math.round(65 * Theme.textScale)
        spacing: 2
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Filters")

        Repeater {
            id: rows
            model: sidebar.model.library.filters
            SidebarRow {
                required property var modelData
                required property int index
                width: filters.width
                isFolded: sidebar.isFolded
                text: modelData.name
                symbol: modelData.symbol
                checked: sidebar.model.library.filter === modelData.name
                onClicked: {
                    sidebar.model.library.filter = modelData.name
                    sidebar.model.goBack()
                }
                Keys.onDownPressed: if (index + 1 < rows.count) rows.itemAt(index + 1).forceActiveFocus(Qt.TabFocusReason)
                Keys.onUpPressed: if (index > 0) rows.itemAt(index - 1).forceActiveFocus(Qt.TabFocusReason)
            }
        }
    }
    Loader {
        id: activity
        active: sidebar.model.activity !== ""
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: sidebar.isFolded ? Theme.gap1 : Theme.gap3
        anchors.bottomMargin: Theme.gap6
        Component.onCompleted: setSource("ActivityCard.qml", {
            isFolded: Qt.binding(() => sidebar.isFolded),
            text: Qt.binding(() => sidebar.model.activity)
        })
        onLoaded: item.cancelled.connect(sidebar.model.cancelImport)
    }
}
