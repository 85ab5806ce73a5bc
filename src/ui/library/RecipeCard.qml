import QtQuick
import Ovrin

/* One recipe in the grid, which hears the pointer for all of its cards: there are many, and each must be light. */
Item {
    id: card

    required property int index
    required property string recipeId
    required property string title
    required property string publisher
    required property url photo
    required property bool isSaved
    required property bool hasPage
    required property color firstTint
    required property color secondTint
    property int photoHeight
    property real lift: 0

    signal opened()

    function open() { opened() }

    Accessible.role: Accessible.Button
    Accessible.name: publisher === "" ? title : qsTr("%1, %2").arg(title).arg(publisher)
    Accessible.description: isSaved ? qsTr("Saved") : ""
    Accessible.focusable: true
    Accessible.onPressAction: opened()

    RecipePhoto {
        id: picture
        y: -card.lift
        width: parent.width
        height: card.photoHeight
        photo: card.photo
        firstTint: card.firstTint
        secondTint: card.secondTint
    }
    Loader {
        active: card.isSaved
        anchors.right: picture.right
        anchors.top: picture.top
        anchors.margins: Theme.gap2
        sourceComponent: Rectangle {
            implicitWidth: mark.width + 14
            implicitHeight: mark.height + 14
            radius: Theme.radiusControl
            color: Theme.cardMark
            Symbol {
                id: mark
                anchors.centerIn: parent
                size: Theme.symbolSmall - 2
                name: "bookmark.fill"
                color: Theme.photoWhite
            }
        }
    }
    Text {
        id: words
        y: card.photoHeight + Theme.gap2 + 2
        width: parent.width
        text: card.title
        textFormat: Text.PlainText
        font: Theme.headline
        color: Theme.text
        maximumLineCount: 2
        wrapMode: Text.Wrap
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    Text {
        y: words.y + words.height + 2
        width: parent.width
        visible: text !== ""
        text: card.publisher
        textFormat: Text.PlainText
        font: Theme.secondaryText
        color: Theme.secondary
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
}
