// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// A plain-text editor that tells how large its laid-out text is, its padding included.
TextEdit {
    id: root

    readonly property size textSize: Qt.size(root.implicitWidth, root.implicitHeight)

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
