// SPDX-License-Identifier: MIT
import QtQuick

// A text of the user or of the program, shown as it is: markup in a task's name stays text.
Text {
    id: root

    color: Theme.colors.text
    font.pointSize: Theme.bodySize
    textFormat: Text.PlainText
    horizontalAlignment: Text.AlignLeft // to the right where the layout is mirrored, whatever the text is
    Accessible.role: Accessible.StaticText
    Accessible.name: root.text
}
