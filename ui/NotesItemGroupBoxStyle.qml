// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// The box of a saved note.
Rectangle {
    id: root

    required property DeletableRow row
    required property string noteText

    // The whole text is to be copied, of which this may show a part.
    signal copied

    implicitHeight: body.height + 2 * Theme.spacing
    radius: Theme.radius
    color: Theme.colors.window

    FocusRing {
        visible: root.row.focusVisible
        controlRadius: Theme.radius
    }

    MarkableText {
        id: body

        x: Theme.spacing
        y: Theme.spacing
        width: root.width - 2 * Theme.spacing
        text: root.noteText
        row: root.row
        onAllCopied: root.copied()
    }
}
