// SPDX-License-Identifier: MIT
import QtQuick

// What can be done with the text of an editor.
ContextMenu {
    id: root

    required property SizeExportingTextView editor

    ContextMenuItem {
        text: qsTr("Undo")
        shortcutText: "Ctrl+Z"
        enabled: root.editor.canUndo
        onTriggered: root.editor.undo()
    }

    ContextMenuItem {
        text: qsTr("Redo")
        shortcutText: "Ctrl+Shift+Z"
        enabled: root.editor.canRedo
        onTriggered: root.editor.redo()
    }

    ContextMenuItem {
        text: qsTr("Cut")
        shortcutText: "Ctrl+X"
        enabled: root.editor.selectedText.length > 0
        onTriggered: root.editor.cut()
    }

    ContextMenuItem {
        text: qsTr("Copy")
        shortcutText: "Ctrl+C"
        enabled: root.editor.selectedText.length > 0
        onTriggered: root.editor.copy()
    }

    ContextMenuItem {
        // Always enabled: whether there is anything to paste, another program would have to say.
        text: qsTr("Paste")
        shortcutText: "Ctrl+V"
        onTriggered: root.editor.paste()
    }

    ContextMenuItem {
        text: qsTr("Select All")
        shortcutText: "Ctrl+A"
        onTriggered: root.editor.selectAll()
    }
}
