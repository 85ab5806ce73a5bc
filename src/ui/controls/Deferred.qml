import QtQuick

/* Something that is made from the file `view` once it is needed: most of a window is never asked for. */
Loader {
    property url view

    /// Makes it, with these properties, where it was not made before.
    function made(properties) {
        if (!item)
            setSource(view, properties)
        return item
    }
}
