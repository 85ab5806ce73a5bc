import QtQuick
import Ovrin

/* The photo's colours, washed out under a veil that keeps words readable; without a photo the recipe's own. */
Item {
    id: background

    required property CookModeViewModel cook

    Rectangle {
        anchors.fill: parent
        gradient: Gradient {
            GradientStop { position: 0; color: background.cook.firstTint }
            GradientStop { position: 1; color: background.cook.secondTint }
        }
    }
    Image {
        anchors.fill: parent
        // A wash has nothing to lose by being stretched.
        source: background.cook.photo.toString() === "" ? "" : background.cook.photo + "?blur=1"
        sourceSize: Qt.size(480, 320)
        fillMode: Image.PreserveAspectCrop
        asynchronous: true
        Accessible.ignored: true
    }
    Rectangle {
        anchors.fill: parent
        gradient: Gradient {
            GradientStop { position: 0; color: Theme.cookVeilTop }
            GradientStop { position: 1; color: Theme.cookVeilBottom }
        }
    }
}
