// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// Writes what the page shows to a file, of the form that its menu offers.
PushButton {
    id: root

    required property HistoryAdapter history
    required property FileTransferAdapter transfer

    function exportAs(form: int) {
        root.transfer.exportShown(root.history.begin, root.history.end, form);
    }

    text: qsTr("Export…")
    enabled: root.history?.canExport ?? false
    onClicked: menu.popup(root, root.LayoutMirroring.enabled ? root.width - menu.width : 0, root.height, tableItem)

    ContextMenu {
        id: menu

        ContextMenuItem {
            id: tableItem

            text: qsTr("As a table (CSV)…")
            onTriggered: root.exportAs(FileTransferAdapter.Table)
        }

        ContextMenuItem {
            text: qsTr("As a calendar (iCalendar)…")
            onTriggered: root.exportAs(FileTransferAdapter.Calendar)
        }
    }
}
