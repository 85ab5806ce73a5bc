import QtQuick
import Ovrin

Rectangle {
    id: notice

    property string text
    property string more

    implicitHeight: words.implicitHeight + Theme.gap6
    radius: Theme.radiusCard - 2
    color: Theme.notice
    Accessible.role: Accessible.StaticText
    Accessible.name: words.text

    Symbol {
        id: symbol
        x: LayoutMirroring.enabled ? parent.width - width - Theme.gap3 : Theme.gap3
        anchors.verticalCenter: parent.verticalCenter
        name: "info.circle"
        color: Theme.accent
    }
    PlainText {
        id: words
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: Theme.gap3 + symbol.width + Theme.gap3
        anchors.rightMargin: Theme.gap3
        anchors.verticalCenter: parent.verticalCenter
        text: notice.more === "" ? notice.text : qsTr("%1 %2").arg(notice.text).arg(notice.more)
        font: Theme.input
        lineHeight: 1.3
        Accessible.ignored: true
    }
}
