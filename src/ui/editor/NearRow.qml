import QtQuick

/* The place of a row in a long form. The row itself is made when NearRows or the keyboard comes to it. */
Item {
    id: place

    property Component row
    /// How high the row will be, as far as that can be said.
    property real estimate: 0

    function made() {
        loader.active = true
        return loader.item
    }

    height: loader.item ? loader.item.height : estimate
    z: loader.item ? loader.item.z : 0

    Loader {
        id: loader
        active: false
        width: parent.width
        sourceComponent: place.row
    }
}
