import QtQuick
import Ovrin

/* One of Ovrin's own line drawings, in one colour, sharp at every pixel ratio. Only a picture: never accessible. */
Image {
    id: symbol

    property string name
    property color color: Theme.text
    property int size: Theme.symbolSize

    width: size
    height: size
    sourceSize: Qt.size(size * Screen.devicePixelRatio, size * Screen.devicePixelRatio)
    source: name === "" ? "" : "image://symbol/" + name + "?" + color
    fillMode: Image.PreserveAspectFit
    Accessible.ignored: true
}
