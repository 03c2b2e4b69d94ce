// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The dialogue about an update. Closing it, however, ends what goes on.
Sheet {
    id: root

    required property UpdateAdapter updates

    title: root.updates.title
    visible: root.updates.presented
    onClosed: root.updates.dismiss()

    contentItem: UpdateForm {
        focus: true
        updates: root.updates
    }
}
