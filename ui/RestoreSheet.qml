// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// Goes back to an earlier state of all tasks.
Sheet {
    id: root

    required property RestoreAdapter adapter

    title: qsTr("Restore from a backup")
    preferredWidth: Theme.backupsWidth
    onAboutToShow: root.adapter.load()

    contentItem: RestoreForm {
        focus: true
        adapter: root.adapter
        onClosed: root.close()
    }
}
