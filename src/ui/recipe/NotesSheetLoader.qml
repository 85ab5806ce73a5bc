import QtQuick
import QtQuick.Templates as T
import Ovrin

/* The sheet over a recipe's notes. However it is left, what was written is kept. */
Item {
    id: root

    required property LibraryWindow model
    property bool isOpen: false

    function open() { isOpen = true }

    Loader {
        active: root.isOpen
        sourceComponent: Item {
            parent: root
            Sheet {
                id: sheet

                function finish() {
                    root.model.recipe.notes = field.text
                    root.isOpen = false
                }

                visible: true
                growing: true
                title: qsTr("Notes")
                cancelText: ""
                confirmText: qsTr("Done")
                firstField: field
                onConfirmed: finish()
                onDismissed: finish()

                Flickable {
                    anchors.fill: parent
                    anchors.margins: Theme.gap5
                    contentHeight: field.height
                    clip: true
                    T.ScrollBar.vertical: ScrollBar {}
                    InputArea {
                        id: field
                        width: parent.width
                        height: Math.max(implicitHeight, parent.parent.height)
                        label: qsTr("Notes")
                        placeholderText: qsTr("What to remember next time")
                        font: Theme.body
                        text: root.model.recipe.notes
                    }
                }
            }
        }
    }
}
