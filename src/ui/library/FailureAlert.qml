import QtQuick
import Ovrin

/* Says why nothing was imported, and offers to write the recipe down instead. */
Item {
    id: root

    required property LibraryWindow model

    Alert {
        visible: true
        title: qsTr("Couldn’t Import Recipe")
        message: root.model.failure
        confirmText: qsTr("Add Manually")
        onConfirmed: root.model.addManually()
        onCancelled: root.model.dismissFailure()
    }
}
