import QtQuick
import Ovrin

/*
    A recipe's photo; its own colours with the fork and knife where there is none. All of it comes rounded from the
    image provider, because the software renderer leaves the corners of a gradient ragged.
*/
Rectangle {
    id: root

    property url photo
    property color firstTint
    property color secondTint
    readonly property bool hasPhoto: photo.toString() !== "" && !image.isMissing
    readonly property string tints: "image://photo/tint/" + String(firstTint).slice(1) + "/" + String(secondTint).slice(1)

    radius: Theme.radiusCard
    color: image.status === Image.Ready ? "transparent" : firstTint

    Image {
        id: image
        readonly property real ratio: Screen.devicePixelRatio
        /// The photo's bytes are none: what came in its stead is a single pixel.
        property bool isMissing: false
        anchors.fill: parent
        sourceSize: Qt.size(Math.round(width * ratio), Math.round(height * ratio))
        source: width <= 0 ? "" : (root.hasPhoto ? root.photo : root.tints) + "?radius=" + Math.round(root.radius * ratio)
        onStatusChanged: if (status === Image.Ready && implicitWidth <= 1) isMissing = true
        Accessible.ignored: true
    }
    onPhotoChanged: image.isMissing = false
}
