import QtQuick
import Ovrin

/*
    One paragraph, under its step's label where it opens a step. Tab reaches each of its links; Return follows it.
*/
Column {
    id: row
    objectName: "direction"

    required property int index
    required property int stepNumber
    required property string stepTitle
    required property string paragraphText
    required property var links
    property DirectionList directions
    property int focused: -1

    signal linkActivated(string address)
    signal linkFocused()

    spacing: Theme.gap1 + 2
    topPadding: stepNumber > 1 ? Theme.gap3 : 0

    StepLabel {
        visible: row.stepNumber > 0
        width: parent.width
        text: qsTr("STEP %1").arg(row.stepNumber)
    }
    PlainText {
        visible: row.stepTitle !== ""
        width: parent.width
        text: row.stepTitle
        font: Theme.headline
        Accessible.role: Accessible.Heading
    }
    Text {
        id: words
        width: parent.width
        text: row.links.length === 0 ? row.paragraphText
            : "<p style='line-height:145%'>"
              + row.directions.richText(row.index, Theme.text, Theme.accent, Theme.lit, row.focused) + "</p>"
        textFormat: row.links.length === 0 ? Text.PlainText : Text.RichText
        lineHeight: row.links.length === 0 ? Theme.leading : 1
        font: Theme.body
        color: Theme.text
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
        Accessible.role: Accessible.StaticText
        Accessible.name: row.paragraphText
        onLinkActivated: link => row.linkActivated(link)

        HoverHandler {
            cursorShape: words.hoveredLink === "" ? Qt.ArrowCursor : Qt.PointingHandCursor
        }
        Repeater {
            model: row.links
            // Nothing to see: a stop for the keyboard and the screen reader where the text has a link.
            Item {
                id: stop
                objectName: "link"
                required property var modelData
                required property int index
                width: words.width
                height: words.height
                activeFocusOnTab: true
                Accessible.role: Accessible.Link
                Accessible.name: modelData.isTimer ? qsTr("Start a timer: %1").arg(modelData.text)
                                                   : qsTr("Show ingredient: %1").arg(modelData.text)
                Accessible.onPressAction: row.linkActivated(modelData.address)
                Keys.onReturnPressed: row.linkActivated(modelData.address)
                Keys.onEnterPressed: row.linkActivated(modelData.address)
                Keys.onSpacePressed: row.linkActivated(modelData.address)
                onActiveFocusChanged: {
                    row.focused = activeFocus ? index : (row.focused === index ? -1 : row.focused)
                    if (activeFocus)
                        row.linkFocused()
                }
                FocusRing {
                    shown: stop.activeFocus
                    gap: Theme.gap1
                }
            }
        }
    }
}
