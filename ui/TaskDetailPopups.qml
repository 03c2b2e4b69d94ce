// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Ui

// The share sheet over a task's pane, and the menu of its rows.
Item {
    id: root

    required property TaskDetailAdapter adapter

    function openMenu(row: DeletableRow, position: point) {
        menu.openFor(row, position);
    }

    DeleteMenu {
        id: menu
    }

    ShareSheet {
        visible: root.adapter.share !== null
        adapter: root.adapter.share
        onClosed: root.adapter.dismissShareSheet()
    }
}
