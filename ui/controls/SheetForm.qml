// SPDX-License-Identifier: MIT
import QtQuick

// The content of a sheet with its buttons below, which stay where they are: where the window is too
// small, only what is above them scrolls. It follows the keyboard.
FocusScope {
    id: root

    default property alias content: column.data
    property alias buttons: row.data
    readonly property Item focusedItem: root.activeFocus ? root.Window.activeFocusItem : null
    readonly property real pageStep: scroller.height - Theme.controlHeight

    function scrollTo(y: real) {
        scroller.contentY = Math.max(0, Math.min(y, scroller.contentHeight - scroller.height));
    }

    // A part of the content down to a height, or as much of that as there is room for.
    function show(part: Item, height: real) {
        const top = part.mapToItem(column, 0, 0).y;
        root.scrollTo(Math.min(top, Math.max(top + height - scroller.height, scroller.contentY)));
    }

    function showFocus() {
        let item = root.focusedItem;
        while (item && item !== column)
            item = item.parent;
        if (item)
            root.show(root.focusedItem, root.focusedItem.height);
    }

    // With the keys that what has the focus does not use itself.
    function scrollByKey(event) {
        const steps = new Map([[Qt.Key_Up, -Theme.controlHeight], [Qt.Key_Down, Theme.controlHeight], [Qt.Key_PageUp, -root.pageStep], [Qt.Key_PageDown, root.pageStep], [Qt.Key_Home, -scroller.contentHeight], [Qt.Key_End, scroller.contentHeight]]);
        event.accepted = scroller.interactive && steps.has(event.key);
        if (event.accepted)
            root.scrollTo(scroller.contentY + steps.get(event.key));
    }

    implicitHeight: column.height + Theme.wideSpacing + row.height
    onFocusedItemChanged: root.showFocus()
    onVisibleChanged: root.scrollTo(0)
    Keys.onPressed: event => root.scrollByKey(event)

    Flickable {
        id: scroller

        // Focus rings and the scroll bar lie around the content.
        readonly property int ringRoom: Theme.tightSpacing

        anchors.fill: parent
        anchors.leftMargin: -scroller.ringRoom
        anchors.rightMargin: -Theme.spacing - Theme.tightSpacing
        anchors.bottomMargin: row.height + Theme.wideSpacing
        contentHeight: column.height
        boundsBehavior: Flickable.StopAtBounds
        interactive: scroller.contentHeight > scroller.height
        clip: scroller.interactive

        Column {
            id: column

            anchors.left: parent.left
            anchors.leftMargin: scroller.ringRoom
            width: root.width
            spacing: Theme.wideSpacing
        }

        ScrollBar {
            flickable: scroller
        }
    }

    Row {
        id: row

        anchors.right: parent.right
        anchors.bottom: parent.bottom
        spacing: Theme.spacing
    }
}
