// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// A plain-text editor that tells how large its laid-out text is, its padding included.
TextEdit {
    id: root

    // Not by the implicit width: whoever asks for that has all of the text laid out twice at each key.
    readonly property size textSize: Qt.size(root.contentWidth + 2 * root.padding, root.contentHeight + 2 * root.padding)

    color: Theme.colors.text
    selectionColor: Theme.colors.selectedContent
    selectedTextColor: Theme.colors.selectedText
    font.pointSize: Theme.bodySize
    textFormat: TextEdit.PlainText
    padding: Theme.tightSpacing
    wrapMode: TextEdit.Wrap
    selectByMouse: true
    persistentSelection: true

    Accessible.role: Accessible.EditableText
    Accessible.multiLine: true

    // A tab would be typed otherwise, and the keyboard could not leave the editor.
    Keys.onTabPressed: root.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
    Keys.onBacktabPressed: root.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)

    ShiftedReturnFilter {
        editor: root
    }

    HoverHandler {
        cursorShape: Qt.IBeamCursor
    }
}
