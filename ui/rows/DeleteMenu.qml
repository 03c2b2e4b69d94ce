// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// The context menu of a view's rows. It stays where it was opened while the rows move under it, acts
// on the row it was opened for, and closes when that row goes.
ContextMenu {
    id: root

    property DeletableRow row

    function openFor(row: DeletableRow, position: point) {
        const place = row.mapToItem(root.parent, position.x, position.y);
        root.row = row;
        root.popup(place.x, place.y, deleteItem);
    }

    function closeWithoutRow() {
        if (!root.row)
            root.close();
    }

    // As the Delete key does it: the keyboard goes back to the row, from where it comes to the one beside.
    function deleteRow() {
        const row = root.row;
        root.close();
        row.deletionRequested();
    }

    onRowChanged: root.closeWithoutRow()

    Binding {
        target: root.row
        property: "menuOpen"
        value: true
        when: root.visible
    }

    ContextMenuItem {
        id: deleteItem

        text: qsTr("Delete")
        isDestructive: true
        onTriggered: root.deleteRow()
    }
}
