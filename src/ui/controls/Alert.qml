import QtQuick
import QtQuick.Templates as T
import Ovrin

/* A question or a message over the dimmed window. Escape is the way out, Return the confirming button. */
T.Popup {
    id: alert

    property string title
    property string message
    property string confirmText
    property string otherText
    property string cancelText: qsTr("Cancel")
    property bool destructive: false

    signal confirmed()
    signal otherChosen()
    signal cancelled()

    function answer(reply) {
        close()
        reply()
    }

    parent: T.Overlay.overlay
    modal: true
    focus: true
    dim: true
    closePolicy: T.Popup.NoAutoClose
    padding: Theme.gap6
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? Math.round((parent.height - height) / 2.4) : 0
    width: parent ? Math.min(Theme.alertWidth, parent.width - Theme.gap6) : 0
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    onAboutToShow: fade.restart()
    onOpened: (confirmText !== "" && !destructive ? confirm : cancel).forceActiveFocus(Qt.TabFocusReason)

    T.Overlay.modal: Rectangle { color: Theme.dim }

    contentItem: FocusScope {
        // What lies over the window does not inherit this from it.
        LayoutMirroring.enabled: Qt.application.layoutDirection === Qt.RightToLeft
        LayoutMirroring.childrenInherit: true
        focus: true
        implicitHeight: column.implicitHeight
        Keys.onEscapePressed: alert.answer(alert.cancelled)

        Column {
            id: column
            width: parent.width
            spacing: Theme.gap2
            PlainText {
                width: parent.width
                text: alert.title
                font: Theme.brand
                Accessible.role: Accessible.Heading
            }
            Flickable {
                // A message from outside may be long: the buttons stay in the window all the same.
                width: parent.width
                height: Math.min(contentHeight, 240)
                contentHeight: words.implicitHeight
                clip: contentHeight > height
                PlainText {
                    id: words
                    width: parent.width
                    text: alert.message
                    font: Theme.input
                    color: Theme.secondary
                    lineHeight: 1.35
                }
            }
            Item { width: 1; height: Theme.gap3 }
            Flow {
                width: parent.width
                spacing: Theme.gap2
                layoutDirection: Qt.RightToLeft
                PushButton {
                    id: confirm
                    visible: text !== ""
                    kind: alert.destructive ? "destructive" : "primary"
                    text: alert.confirmText
                    onClicked: alert.answer(alert.confirmed)
                }
                PushButton {
                    visible: text !== ""
                    text: alert.otherText
                    onClicked: alert.answer(alert.otherChosen)
                }
                PushButton {
                    id: cancel
                    visible: text !== ""
                    text: alert.cancelText
                    onClicked: alert.answer(alert.cancelled)
                }
            }
        }
    }
    background: SheetBackground {}
    // The popup is an item of its own, around its content: that is the dialog.
    Binding { target: alert.contentItem.parent?.Accessible ?? null; property: "name"; value: alert.title }
    Binding { target: alert.contentItem.parent?.Accessible ?? null; property: "description"; value: alert.message }
    // Not its own transition, which would keep the keyboard from it until it is through.
    FadeIn { id: fade; target: alert; duration: Theme.quick }
}
