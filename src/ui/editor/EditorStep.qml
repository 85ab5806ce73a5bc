import QtQuick
import Ovrin

/* One step being edited. */
Rectangle {
    id: card

    required property int index
    required property string stepTitle
    required property string stepText
    required property StepRows rows
    property int stepCount: 0

    function takeFocus() { words.forceActiveFocus(Qt.OtherFocusReason) }

    height: heading.height + Theme.hairline + words.height
    radius: Theme.radiusCard
    color: Theme.card
    border.width: Theme.hairline
    border.color: Theme.line
    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Step %1").arg(index + 1)

    StepLabel {
        id: number
        x: LayoutMirroring.enabled ? parent.width - width - Theme.gap4 + 2 : Theme.gap4 - 2
        height: heading.height
        verticalAlignment: Text.AlignVCenter
        text: card.index + 1
        Accessible.ignored: true
    }
    InputField {
        id: heading
        anchors.left: parent.left
        anchors.leftMargin: Theme.gap10
        anchors.right: more.left
        framed: false
        label: qsTr("Section heading of step %1 (optional)").arg(card.index + 1)
        placeholderText: qsTr("Section heading (optional)")
        text: card.stepTitle
        onWritten: card.rows.setStepTitle(card.index, text)
        Keys.onReturnPressed: event => event.modifiers & Qt.ControlModifier ? event.accepted = false : card.takeFocus()
    }
    MarkButton {
        id: more
        anchors.right: parent.right
        anchors.verticalCenter: heading.verticalCenter
        symbol: "ellipsis"
        hint: qsTr("Step %1: more").arg(card.index + 1)
        Accessible.role: Accessible.ButtonMenu
        onClicked: {
            const actions = menu.made({step: card, label: hint})
            actions.popup(more, more.width - actions.width, more.height)
        }
        Deferred { id: menu; view: Qt.resolvedUrl("StepMenu.qml") }
    }
    Rectangle {
        y: heading.height
        width: parent.width
        height: Theme.hairline
        color: Theme.line
    }
    InputArea {
        id: words
        y: heading.height + Theme.hairline
        width: parent.width
        leftPadding: Theme.gap4 - 2
        rightPadding: Theme.gap4 - 2
        label: qsTr("Directions of step %1").arg(card.index + 1)
        placeholderText: qsTr("What to do")
        text: card.stepText
        onWritten: card.rows.setStepText(card.index, text)
    }
    FieldFocus { shown: words.activeFocus; anchors.topMargin: heading.height }
    FieldFocus { shown: heading.activeFocus; anchors.bottomMargin: words.height }
}
