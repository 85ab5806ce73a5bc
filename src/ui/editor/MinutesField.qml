import QtQuick
import Ovrin

/* A number of minutes in a card of its own. */
Rectangle {
    id: card

    property alias label: row.label
    property alias text: row.text

    signal edited(string text)

    height: row.height
    radius: Theme.radiusCard
    color: Theme.card
    border.width: Theme.hairline
    border.color: Theme.line
    FormRow {
        id: row
        isLast: true
        labelWidth: Math.round(52 * Theme.textScale)
        field.inputMethodHints: Qt.ImhDigitsOnly
        field.validator: RegularExpressionValidator { regularExpression: /[0-9]{0,6}/ }
        field.label: qsTr("%1 minutes").arg(label)
        onEdited: text => card.edited(text)
    }
}
