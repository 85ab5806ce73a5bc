import QtQuick

/* Has those NearRows of a repeater made that are close to what the form shows. A long recipe opens as a short one. */
Item {
    id: near

    required property Flickable form
    required property Repeater rows
    /// How far above and below the form's edge rows are made: enough for Tab and the wheel to find them there.
    readonly property int reach: 600

    function make() {
        if (rows.count === 0 || form.height <= 0)
            return
        const top = form.contentItem.mapToItem(rows.parent, 0, form.contentY).y - reach
        const bottom = top + form.height + 2 * reach
        let first = 0, end = rows.count
        while (first < end) {
            const middle = Math.floor((first + end) / 2)
            const row = rows.itemAt(middle)
            if (row.y + row.height < top)
                first = middle + 1
            else
                end = middle
        }
        for (let i = first; i < rows.count; ++i) {
            const row = rows.itemAt(i)
            // One that has no place yet comes with the form's next height.
            if (row.y > bottom || (i > 0 && row.y === 0))
                return
            row.made()
        }
    }

    visible: false
    Component.onCompleted: Qt.callLater(make)

    Connections {
        target: near.form
        function onContentYChanged() { near.make() }
        function onHeightChanged() { Qt.callLater(near.make) }
        function onContentHeightChanged() { Qt.callLater(near.make) }
    }
}
