import QtQuick
import QtQuick.Templates as T
import Ovrin

/* The ingredient lines as written, to be ticked off. */
ListView {
    id: view

    required property CheckList list
    property string heading
    property real typeScale: 1

    clip: true
    model: list
    boundsBehavior: Flickable.StopAtBounds
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Ingredients")

    header: Item {
        width: view.width
        height: view.heading === "" ? 0 : heading.implicitHeight + Theme.gap3
        PlainText {
            id: heading
            visible: view.heading !== ""
            text: view.heading
            font: Theme.brand
            Accessible.role: Accessible.Heading
        }
    }
    delegate: T.CheckDelegate {
        id: row

        required property int index
        required property var model

        width: ListView.view.width
        implicitHeight: Math.max(Theme.rowHeight, line.implicitHeight + Theme.gap5)
        focusPolicy: Qt.TabFocus
        text: model.text
        checked: model.checked
        enabled: !model.heading
        // The model alone says what is ticked.
        nextCheckState: () => checkState
        onClicked: view.list.toggle(index)
        Keys.onReturnPressed: clicked()
        Keys.onEnterPressed: clicked()
        Accessible.role: model.heading ? Accessible.Heading : Accessible.CheckBox
        Accessible.name: text
        Accessible.checked: checked
        Accessible.onPressAction: clicked()
        Accessible.onToggleAction: clicked()

        contentItem: Item {
            opacity: row.checked ? Theme.cookDimmed : 1
            Symbol {
                id: mark
                visible: !row.model.heading
                anchors.verticalCenter: parent.verticalCenter
                name: row.checked ? "checkmark.circle.fill" : "circle"
            }
            PlainText {
                id: line
                anchors { left: mark.visible ? mark.right : parent.left; right: parent.right }
                anchors { leftMargin: mark.visible ? Theme.gap3 : 0; verticalCenter: parent.verticalCenter }
                text: row.text
                color: row.model.heading ? Theme.secondary : Theme.text
                font: Qt.font({family: Theme.family, pixelSize: Math.round((row.model.heading ? Theme.sizeBody : Theme.sizeBrand) * view.typeScale),
                               weight: row.model.heading ? Font.DemiBold : Font.Normal, strikeout: row.checked})
                Accessible.ignored: true
            }
        }
        background: Item {
            Rectangle {
                anchors.bottom: parent.bottom
                width: parent.width
                height: Theme.hairline
                color: Theme.cookLine
            }
            FocusRing { anchors.margins: 0; shown: row.visualFocus }
        }
    }
}
