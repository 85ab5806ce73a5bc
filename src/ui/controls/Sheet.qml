import QtQuick
import QtQuick.Templates as T
import Ovrin

/*
    A sheet over the dimmed window: a title between "Cancel" and the confirming button, and its content below.
    Escape asks to leave, Ctrl+Return confirms; `firstField` has the focus when it has opened.
*/
T.Popup {
    id: sheet

    property string title
    property string confirmText
    property string cancelText: qsTr("Cancel")
    property bool canConfirm: true
    property bool growing: false
    property Item firstField
    default property alias body: holder.data

    signal confirmed()
    /// Escape or a click beside the sheet; `cancelled` is the button.
    signal dismissed()
    signal cancelled()

    parent: T.Overlay.overlay
    modal: true
    focus: true
    dim: true
    closePolicy: T.Popup.NoAutoClose
    padding: 0
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? Math.max(Theme.gap3, growing ? Math.round((parent.height - height) / 2)
                                     : Math.round((parent.height - height) / 3)) : 0
    width: parent ? Math.min(growing ? Theme.sheetWidth : Theme.sheetNarrow, parent.width - Theme.gap6) : 0
    height: parent ? Math.min(growing ? Math.max(480, parent.height - Theme.gap10 * 2) : implicitHeight,
                              parent.height - Theme.gap6) : 0
    implicitHeight: bar.height + holder.implicitHeight
    onAboutToShow: fade.restart()
    onOpened: if (firstField) firstField.forceActiveFocus(Qt.TabFocusReason)

    T.Overlay.modal: Rectangle {
        color: Theme.dim
        Behavior on opacity { NumberAnimation { duration: Theme.calm } }
    }

    contentItem: FocusScope {
        // What lies over the window does not inherit this from it.
        LayoutMirroring.enabled: Qt.application.layoutDirection === Qt.RightToLeft
        LayoutMirroring.childrenInherit: true
        focus: true
        Keys.onEscapePressed: sheet.dismissed()
        Shortcut {
            enabled: sheet.opened && sheet.canConfirm && sheet.confirmText !== ""
            sequences: ["Ctrl+Return", "Ctrl+Enter"]
            onActivated: sheet.confirmed()
        }

        Item {
            id: bar
            width: parent.width
            height: Theme.controlHeight + Theme.gap7
            // Behind the content in the tab order would be wrong for a title bar: it comes after the fields.
            PushButton {
                id: cancel
                visible: sheet.cancelText !== ""
                anchors.verticalCenter: parent.verticalCenter
                anchors.left: parent.left
                anchors.leftMargin: Theme.gap4 + 2
                text: sheet.cancelText
                onClicked: sheet.cancelled()
            }
            PlainText {
                anchors.centerIn: parent
                width: parent.width - 2 * Math.max(cancel.width, confirm.width) - Theme.gap12
                horizontalAlignment: Text.AlignHCenter
                text: sheet.title
                font: Theme.headline
                elide: Text.ElideRight
                wrapMode: Text.NoWrap
                Accessible.role: Accessible.Heading
            }
            PushButton {
                id: confirm
                visible: sheet.confirmText !== ""
                anchors.verticalCenter: parent.verticalCenter
                anchors.right: parent.right
                anchors.rightMargin: Theme.gap4 + 2
                kind: "primary"
                text: sheet.confirmText
                enabled: sheet.canConfirm
                onClicked: sheet.confirmed()
            }
            Rectangle {
                anchors.bottom: parent.bottom
                width: parent.width
                height: Theme.hairline
                color: Theme.line
            }
        }
        Item {
            id: holder
            anchors.top: bar.bottom
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            implicitHeight: childrenRect.height
        }
    }
    background: SheetBackground {}
    // The popup is an item of its own, around its content: that is the dialog.
    Binding { target: sheet.contentItem.parent?.Accessible ?? null; property: "name"; value: sheet.title }
    // Not its own transition, which would keep the keyboard from it until it is through.
    FadeIn { id: fade; target: sheet; duration: Theme.calm }
}
