import QtQuick
import Ovrin

/* One paragraph, under its step's label where it opens a step. Tab reaches the times of the current one. */
Column {
    id: stop

    required property int index
    required property int stepNumber
    required property string stepTitle
    required property string paragraphText
    required property var links
    property DirectionList stops
    property bool isCurrent
    property real typeScale: 1
    property int focused: -1

    signal tapped()
    signal linkActivated(string address)

    spacing: Theme.gap3
    opacity: isCurrent ? 1 : Theme.cookDimmed
    Behavior on opacity { NumberAnimation { duration: Theme.calm; easing.type: Easing.OutCubic } }

    PlainText {
        visible: stop.stepNumber > 0
        width: parent.width
        text: stop.stepTitle === "" ? qsTr("STEP %1").arg(stop.stepNumber)
                                    : qsTr("STEP %1 — %2").arg(stop.stepNumber).arg(stop.stepTitle)
        color: Theme.accent
        font: Qt.font({family: Theme.family, pixelSize: Math.round(Theme.sizeBody * stop.typeScale),
                       weight: Font.DemiBold, letterSpacing: 1.2})
        Accessible.role: Accessible.Heading
    }
    Text {
        id: words
        width: parent.width
        text: stop.links.length === 0 ? stop.paragraphText
            : "<p style='line-height:125%;margin:0'>"
              + stop.stops.richText(stop.index, Theme.text, Theme.accent, Theme.lit, stop.focused,
                                    stop.isCurrent ? 800 : 600, 0) + "</p>"
        textFormat: stop.links.length === 0 ? Text.PlainText : Text.RichText
        lineHeight: stop.links.length === 0 ? 1.25 : 1
        font.family: Theme.family
        font.pixelSize: Math.round((stop.isCurrent ? Theme.sizeCookCurrent : Theme.sizeCookOther) * stop.typeScale)
        font.weight: stop.isCurrent ? Font.DemiBold : Font.Normal
        color: Theme.text
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
        Accessible.role: Accessible.StaticText
        Accessible.name: stop.paragraphText
        // Where a mention of an ingredient is tapped, its paragraph is.
        onLinkActivated: address => {
            if (stop.links.some(link => link.isTimer && link.address === address))
                stop.linkActivated(address)
            else
                stop.tapped()
        }

        HoverHandler {
            cursorShape: words.hoveredLink === "" ? Qt.ArrowCursor : Qt.PointingHandCursor
        }
        TapHandler {
            onTapped: eventPoint => {
                if (words.linkAt(eventPoint.position.x, eventPoint.position.y) === "")
                    stop.tapped()
            }
        }
        Repeater {
            model: stop.isCurrent ? stop.links.filter(link => link.isTimer) : []
            // Nothing to see: a stop for the keyboard and the screen reader where the text has a time.
            Item {
                id: target
                required property var modelData
                readonly property int position: stop.links.indexOf(modelData)
                objectName: "timerLink"
                width: words.width
                height: words.height
                activeFocusOnTab: true
                Accessible.role: Accessible.Link
                Accessible.name: qsTr("Start a timer: %1").arg(modelData.text)
                Accessible.onPressAction: stop.linkActivated(modelData.address)
                Keys.onReturnPressed: stop.linkActivated(modelData.address)
                Keys.onEnterPressed: stop.linkActivated(modelData.address)
                onActiveFocusChanged: stop.focused = activeFocus ? position : -1
            }
        }
    }
}
