import QtQuick
import QtQuick.Templates as T
import Ovrin

/* A bare symbol that can be pressed: remove, clear, cancel. */
T.Button {
    id: control

    property string symbol
    property string hint
    property color ink: Theme.secondary
    property int size: Theme.symbolSmall + 2

    implicitWidth: Theme.controlHeight
    implicitHeight: Theme.controlHeight
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Accessible.role: Accessible.Button
    Accessible.name: hint
    Accessible.onPressAction: clicked()

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            size: control.size
            name: control.symbol
            color: control.hovered || control.visualFocus ? Theme.text : control.ink
            opacity: control.down ? 0.7 : 1
        }
    }
    background: Item {
        FocusRing {
            anchors.margins: 2
            gap: 0
            around: Theme.radiusSmall
            shown: control.visualFocus
        }
    }
    ToolTip {
        text: control.hint
        shown: control.hovered
    }
}
