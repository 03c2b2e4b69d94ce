// SPDX-License-Identifier: MIT
import QtQuick

// A text that can be marked and copied, but not changed.
TextEdit {
    id: root

    readOnly: true
    activeFocusOnPress: false
    persistentSelection: true
    color: Theme.colors.text
    selectionColor: Theme.colors.selectedContent
    selectedTextColor: Theme.colors.selectedText
    font.pointSize: Theme.bodySize
    textFormat: TextEdit.PlainText
    wrapMode: TextEdit.Wrap
    Accessible.role: Accessible.StaticText
    Accessible.name: root.text
}
