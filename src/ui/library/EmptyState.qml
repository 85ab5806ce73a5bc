import QtQuick
import Ovrin

/* What stands where there are no cards: nothing found, nothing here, or nothing yet. */
Item {
    id: root

    required property LibraryWindow model
    readonly property bool isSearching: model.library.search !== ""
    readonly property bool isWhole: model.library.filter === model.library.filters[0].name

    signal importRequested()

    Column {
        anchors.centerIn: parent
        anchors.verticalCenterOffset: -Theme.gap7
        width: Math.min(parent.width - Theme.gap10, 400 * Theme.textScale)
        spacing: Theme.gap3
        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            size: Theme.symbolLarge
            name: root.isSearching ? "magnifyingglass" : "fork.knife"
            color: Theme.secondary
        }
        Item { width: 1; height: Theme.gap1 }
        PlainText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: root.isSearching ? qsTr("No Results for “%1”").arg(root.model.library.search)
                : root.isWhole ? qsTr("No Recipes Yet") : qsTr("Nothing Here Yet")
            font: Theme.title
            maximumLineCount: 3
            elide: Text.ElideRight
            Accessible.role: Accessible.Heading
        }
        PlainText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: root.isSearching ? qsTr("Check the spelling or try a new search.")
                : qsTr("Import a recipe from the web, a PDF or a screenshot — or write your own.")
            color: Theme.secondary
            lineHeight: Theme.leading
        }
        Item { width: 1; height: Theme.gap1; visible: buttons.visible }
        Row {
            id: buttons
            visible: !root.isSearching && root.isWhole
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: Theme.gap2 + 2
            PushButton {
                kind: "primary"
                text: qsTr("Import from Web")
                onClicked: root.importRequested()
            }
            PushButton {
                text: qsTr("New Recipe")
                onClicked: root.model.createRecipe()
            }
        }
    }
}
