import QtQuick
import Ovrin

/* One recipe in the grid. */
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
    property bool hasRing: false

    signal opened()
    signal menuRequested(real x, real y)

    function open() { opened() }

    Accessible.role: Accessible.Button
    Accessible.name: publisher === "" ? title : qsTr("%1, %2").arg(title).arg(publisher)
    Accessible.description: isSaved ? qsTr("Saved") : ""
    Accessible.focusable: true
    Accessible.onPressAction: opened()

    HoverHandler { id: hover }
    TapHandler { onTapped: card.opened() }
    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: point => card.menuRequested(point.position.x, point.position.y)
    }
    TapHandler {
        acceptedDevices: PointerDevice.TouchScreen
        onLongPressed: card.menuRequested(point.position.x, point.position.y)
    }

    Rectangle {
        anchors.fill: picture
        anchors.margins: -3
        anchors.topMargin: 3
        anchors.bottomMargin: -7
        radius: Theme.radiusCard + 4
        color: Theme.shadow
        visible: hover.hovered
    }
    RecipePhoto {
        id: picture
        width: parent.width
        height: card.photoHeight
        photo: card.photo
        firstTint: card.firstTint
        secondTint: card.secondTint
        transform: Translate {
            y: hover.hovered ? -2 : 0
            Behavior on y { NumberAnimation { duration: Theme.quick; easing.type: Easing.OutCubic } }
        }
        FocusRing {
            shown: card.hasRing
            around: Theme.radiusCard
            gap: 3
            border.width: 3
        }
        Rectangle {
            visible: card.isSaved
            anchors.right: parent.right
            anchors.top: parent.top
            anchors.margins: Theme.gap2
            width: mark.width + 14
            height: mark.height + 14
            radius: Theme.radiusControl
            color: Theme.cardMark
            Symbol {
                id: mark
                anchors.centerIn: parent
                size: Theme.symbolSmall - 2
                name: card.isSaved ? "bookmark.fill" : ""
                color: Theme.photoWhite
            }
        }
    }
    PlainText {
        id: words
        anchors.top: picture.bottom
        anchors.topMargin: Theme.gap2 + 2
        width: parent.width
        text: card.title
        font: Theme.headline
        maximumLineCount: 2
        elide: Text.ElideRight
        Accessible.ignored: true
    }
    PlainText {
        anchors.top: words.bottom
        anchors.topMargin: 2
        width: parent.width
        visible: text !== ""
        text: card.publisher
        font: Theme.secondaryText
        color: Theme.secondary
        wrapMode: Text.NoWrap
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
