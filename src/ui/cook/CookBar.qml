import QtQuick
import Ovrin

/* The recipe's title, and the ways out. */
Item {
    id: bar

    property string title
    property bool hasIngredientsButton: false

    signal ingredientsRequested()
    signal closeRequested()

    height: close.height

    PlainText {
        anchors { left: parent.left; right: buttons.left; verticalCenter: parent.verticalCenter }
        anchors.leftMargin: Theme.gap3
        anchors.rightMargin: Theme.gap4
        text: bar.title
        font: Theme.brand
        wrapMode: Text.NoWrap
        maximumLineCount: 1
        elide: Text.ElideRight
        Accessible.role: Accessible.Heading
    }
    Row {
        id: buttons
        anchors.right: parent.right
        spacing: Theme.gap3
        CookButton {
            objectName: "ingredientsButton"
            visible: bar.hasIngredientsButton
            symbol: "list.bullet"
            text: qsTr("Ingredients")
            onClicked: bar.ingredientsRequested()
        }
        CookButton {
            id: close
            objectName: "close"
            symbol: "xmark"
            hint: qsTr("Close")
            onClicked: bar.closeRequested()
        }
    }
}
