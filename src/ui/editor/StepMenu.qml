import Ovrin

/* What can be done with a step of the editor. */
ActionMenu {
    id: menu

    required property EditorStep step

    ActionItem {
        text: qsTr("Move Up"); symbol: "arrow.up"
        enabled: menu.step.index > 0
        onTriggered: menu.step.rows.move(menu.step.index, menu.step.index - 1)
    }
    ActionItem {
        text: qsTr("Move Down"); symbol: "arrow.down"
        enabled: menu.step.index + 1 < menu.step.stepCount
        onTriggered: menu.step.rows.move(menu.step.index, menu.step.index + 1)
    }
    ActionItem {
        text: qsTr("Delete Step"); symbol: "trash"; destructive: true
        onTriggered: menu.step.rows.remove(menu.step.index)
    }
}
