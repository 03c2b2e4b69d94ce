// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// The keys that do something everywhere in the window.
Sheet {
    id: root

    title: qsTr("Keyboard Shortcuts")

    contentItem: ShortcutsForm {
        focus: true
        onClosed: root.close()
    }
}
