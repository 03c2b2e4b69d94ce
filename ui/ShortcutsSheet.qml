// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// The keys that do something everywhere in the window.
Sheet {
    id: root

    contentItem: ShortcutsForm {
        focus: true
        onClosed: root.close()
    }
}
