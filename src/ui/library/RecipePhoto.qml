import QtQuick
import QtQuick.Window
import Ovrin

/* A recipe's photo, or its gradient with the fork and knife until there is one, and where there is none. */
Item {
    id: root

    property url photo
    property color firstTint
    property color secondTint
    property int radius: Theme.radiusCard
    readonly property bool hasPhoto: image.status === Image.Ready && image.implicitWidth > 1

    Rectangle {
        anchors.fill: parent
        visible: !root.hasPhoto
        radius: root.radius
        gradient: Gradient {
            GradientStop { position: 0; color: root.firstTint }
            GradientStop { position: 1; color: root.secondTint }
        }
        Symbol {
            visible: root.photo.toString() === "" || image.status !== Image.Loading
            anchors.centerIn: parent
            size: Math.round(44 * Theme.textScale)
            name: "fork.knife"
            color: Theme.photoFaint
        }
    }
    Image {
        id: image
        readonly property real ratio: Screen.devicePixelRatio
        anchors.fill: parent
        sourceSize: Qt.size(Math.round(width * ratio), Math.round(height * ratio))
        source: root.photo.toString() === "" || width <= 0 ? ""
              : root.photo + "?radius=" + Math.round(root.radius * ratio)
        Accessible.ignored: true
    }
}
