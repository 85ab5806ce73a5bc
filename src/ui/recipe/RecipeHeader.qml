import QtQuick
import Ovrin

/* The photo at full width under the recipe's own colours, with its title, facts and buttons over it. */
Item {
    id: header

    required property LibraryWindow model
    readonly property RecipeViewModel recipe: model.recipe
    property int margin
    readonly property int inset: Math.max(margin, Math.round((width - Theme.contentMaximum) / 2) + margin)

    height: Math.max(picture.hasPhoto || recipe.photo.toString() !== "" ? Theme.headerHeight : Theme.headerHeight * 0.78,
                     words.height + Theme.controlHeight + Theme.gap12 + Theme.gap7)

    Rectangle {
        anchors.fill: parent
        gradient: Gradient {
            GradientStop { position: 0; color: header.recipe.secondTint }
            GradientStop { position: 1; color: header.recipe.firstTint }
        }
    }
    Image {
        id: picture
        readonly property bool hasPhoto: status === Image.Ready && implicitWidth > 1
        readonly property real ratio: Screen.devicePixelRatio
        // In steps, so that a window being resized does not have the photo cut anew at every pixel.
        readonly property int steppedWidth: Math.max(320, Math.ceil(header.width / 160) * 160)
        anchors.fill: parent
        visible: hasPhoto
        fillMode: Image.PreserveAspectCrop
        sourceSize: Qt.size(Math.round(steppedWidth * ratio), Math.round(header.height * ratio))
        source: header.recipe.photo.toString() === "" || header.width <= 0 ? "" : header.recipe.photo
        Accessible.role: Accessible.Graphic
        Accessible.name: qsTr("Photo of %1").arg(header.recipe.title)
    }
    Rectangle {
        anchors.fill: parent
        visible: picture.hasPhoto
        color: Qt.alpha("black", 0.08)
    }
    Item {
        // Dark enough from the first word on, whatever the photo shows there; above it fades away. Under the
        // recipe's own tint lies black, because the tint of a pale photo is pale too.
        id: veil
        readonly property real fade: Math.round(110 * Theme.textScale)
        readonly property real start: fade / height
        readonly property real strength: picture.hasPhoto ? 1 : 0.2
        y: words.y - fade
        width: parent.width
        height: parent.height - y
        Repeater {
            model: [{color: "black", high: 0.44, low: 0.5}, {color: header.recipe.firstTint, high: 0.36, low: 0.86}]
            Rectangle {
                required property var modelData
                anchors.fill: parent
                gradient: Gradient {
                    GradientStop { position: 0; color: Qt.alpha(modelData.color, 0) }
                    GradientStop { position: veil.start * 0.3; color: Qt.alpha(modelData.color, modelData.high * 0.16 * veil.strength) }
                    GradientStop { position: veil.start * 0.65; color: Qt.alpha(modelData.color, modelData.high * 0.62 * veil.strength) }
                    GradientStop { position: veil.start; color: Qt.alpha(modelData.color, modelData.high * veil.strength) }
                    GradientStop { position: 1; color: Qt.alpha(modelData.color, modelData.low * veil.strength) }
                }
            }
        }
    }

    Column {
        id: words
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: header.inset
        anchors.rightMargin: header.inset
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.gap6 + 2
        spacing: Theme.gap2

        PlainText {
            width: parent.width
            visible: text !== ""
            text: header.recipe.byline
            font: Theme.secondaryText
            color: Theme.photoWhite
            maximumLineCount: 2
            elide: Text.ElideRight
        }
        PlainText {
            objectName: "recipeTitle"
            width: parent.width
            text: header.recipe.title
            font: Theme.hero
            color: Theme.photoWhite
            lineHeight: 1.1
            maximumLineCount: 4
            elide: Text.ElideRight
            Accessible.role: Accessible.Heading
        }
        PlainText {
            width: parent.width
            visible: text !== ""
            text: header.recipe.facts
            font: Theme.input
            color: Theme.photoWhite
            maximumLineCount: 3
            elide: Text.ElideRight
        }
        Item { width: 1; height: Theme.gap2 }
        Flow {
            width: parent.width
            spacing: Theme.gap2 + 2
            PhotoButton {
                visible: header.model.canCook
                bright: true
                symbol: "frying.pan"
                text: qsTr("Cook")
                onClicked: header.model.cook()
            }
            PhotoButton {
                objectName: "save"
                bright: !header.model.canCook && !header.recipe.isSaved
                symbol: header.recipe.isSaved ? "bookmark.fill" : "bookmark"
                text: qsTr("Save")
                checked: header.recipe.isSaved
                Accessible.checkable: true
                onClicked: header.recipe.toggleSaved()
            }
            PhotoButton {
                id: share
                objectName: "share"
                symbol: "square.and.arrow.up"
                text: qsTr("Share")
                Accessible.role: Accessible.ButtonMenu
                onClicked: shareMenu.popup(share, 0, share.height + Theme.gap1)
                ActionMenu {
                    id: shareMenu
                    label: share.text
                    ActionItem {
                        text: qsTr("Copy Recipe"); symbol: "doc.on.clipboard"
                        onTriggered: header.model.copyRecipe()
                    }
                    ActionItem {
                        text: qsTr("Send by Mail…"); symbol: "square.and.arrow.up"
                        onTriggered: header.model.mailRecipe()
                    }
                }
            }
            PhotoButton {
                visible: header.recipe.hasPage
                text: qsTr("Read the Story")
                trailing: "chevron.right"
                Accessible.role: Accessible.Link
                onClicked: header.model.openPage(header.recipe.recipeId)
            }
        }
    }
}
