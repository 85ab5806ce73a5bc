import QtQuick
import QtQuick.Templates as T
import Ovrin

/* One timer: what it is for, and how long it still runs. */
Item {
    id: capsule

    required property var timerId
    required property string label
    required property string recipeTitle
    required property string timeLeft
    required property bool done
    property real typeScale: 1
    readonly property color ink: done ? Theme.inkOnAccent : Theme.text
    readonly property font words: Qt.font({family: Theme.family, pixelSize: Math.round(Theme.sizeBody * typeScale)})
    readonly property font timeLeftFont: Qt.font({family: Theme.family, weight: Font.DemiBold,
                                                  pixelSize: Math.round(Theme.sizeHeadline * typeScale)})

    signal stopRequested()

    Accessible.role: Accessible.ListItem
    Accessible.name: done ? qsTr("%1, %2: done").arg(label).arg(recipeTitle)
                          : qsTr("%1, %2: %3 left").arg(label).arg(recipeTitle).arg(timeLeft)

    TextMetrics {
        id: widest
        font: capsule.timeLeftFont
        text: time.text.replace(/[0-9]/g, "0")
    }
    Rectangle {
        anchors.right: parent.right
        width: Math.min(parent.width, Math.ceil(row.implicitWidth) + Theme.gap4 + Theme.gap2)
        height: parent.height
        radius: height / 2
        color: capsule.done ? Theme.accent : Theme.card
        border.width: capsule.done ? 0 : Theme.hairline
        border.color: Theme.line

        Row {
            id: row
            anchors { left: parent.left; leftMargin: Theme.gap4; verticalCenter: parent.verticalCenter }
            spacing: Theme.gap2
            Symbol {
                id: bell
                anchors.verticalCenter: parent.verticalCenter
                name: capsule.done ? "bell.fill" : "timer"
                color: capsule.ink
                size: Math.round(Theme.symbolSize * capsule.typeScale)
                transformOrigin: Item.Top
                SequentialAnimation on rotation {
                    running: capsule.done && !Theme.reducedMotion
                    loops: Animation.Infinite
                    onStopped: bell.rotation = 0
                    NumberAnimation { to: 16; duration: 110; easing.type: Easing.InOutSine }
                    NumberAnimation { to: -14; duration: 160; easing.type: Easing.InOutSine }
                    NumberAnimation { to: 8; duration: 140; easing.type: Easing.InOutSine }
                    NumberAnimation { to: 0; duration: 120; easing.type: Easing.InOutSine }
                    PauseAnimation { duration: 900 }
                }
            }
            PlainText {
                anchors.verticalCenter: parent.verticalCenter
                width: Math.min(implicitWidth, capsule.width - bell.width - time.width - stop.width - 6 * Theme.gap2)
                // One line, whatever the label holds.
                text: capsule.label.replace(/\s+/g, " ")
                color: capsule.ink
                font: capsule.words
                wrapMode: Text.NoWrap
                maximumLineCount: 1
                elide: Text.ElideRight
                Accessible.ignored: true
            }
            PlainText {
                id: time
                anchors.verticalCenter: parent.verticalCenter
                // As wide as the widest digits, so that the capsule does not tremble.
                width: Math.ceil(widest.advanceWidth)
                text: capsule.done ? qsTr("Done") : capsule.timeLeft
                color: capsule.ink
                font: capsule.timeLeftFont
                wrapMode: Text.NoWrap
                Accessible.ignored: true
            }
            T.Button {
                id: stop
                objectName: "stopTimer"
                anchors.verticalCenter: parent.verticalCenter
                width: Theme.controlHeight
                height: Theme.controlHeight
                hoverEnabled: true
                focusPolicy: Qt.TabFocus
                onClicked: capsule.stopRequested()
                Keys.onReturnPressed: clicked()
                Keys.onEnterPressed: clicked()
                Accessible.role: Accessible.Button
                Accessible.name: qsTr("Stop timer")
                Accessible.onPressAction: clicked()
                contentItem: Item {
                    Symbol {
                        anchors.centerIn: parent
                        name: "xmark.circle.fill"
                        size: Math.round(Theme.symbolSize * capsule.typeScale)
                        color: capsule.done || stop.hovered ? capsule.ink : Theme.secondary
                    }
                }
                background: Item { FocusRing { around: Theme.controlHeight / 2; gap: 0; shown: stop.visualFocus } }
                ToolTip { text: qsTr("Stop timer"); shown: stop.hovered }
            }
        }
    }
}
