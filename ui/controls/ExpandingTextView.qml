// SPDX-License-Identifier: MIT
import QtQuick

// A plain-text editor of several lines that is as tall as its text, and at least minHeight.
FocusScope {
    id: root

    property alias text: editor.text
    readonly property alias textDocument: editor.textDocument
    property alias cursorRectangle: editor.cursorRectangle
    property alias accessibleName: editor.accessibleName
    readonly property alias textSize: editor.textSize
    property real minHeight

    function openMenu() {
        menu.popup(root, editor.cursorRectangle.x, editor.cursorRectangle.y + editor.cursorRectangle.height);
    }

    function openMenuOnShift(event) {
        event.accepted = event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier;
        if (event.accepted)
            root.openMenu();
    }

    implicitHeight: Math.max(root.minHeight, root.textSize.height)
    height: implicitHeight

    SizeExportingTextView {
        id: editor

        property string accessibleName

        anchors.fill: parent
        focus: true
        activeFocusOnTab: true
        Accessible.name: editor.accessibleName
        Keys.onMenuPressed: root.openMenu()
        Keys.onPressed: event => root.openMenuOnShift(event)

        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.RightButton
            onPressed: mouse => menu.popup(root, mouse.x, mouse.y)
        }
    }

    ContextMenu {
        id: menu

        ContextMenuItem {
            text: qsTr("Undo")
            shortcutText: "Ctrl+Z"
            enabled: editor.canUndo
            onTriggered: editor.undo()
        }
        ContextMenuItem {
            text: qsTr("Redo")
            shortcutText: "Ctrl+Shift+Z"
            enabled: editor.canRedo
            onTriggered: editor.redo()
        }
        ContextMenuItem {
            text: qsTr("Cut")
            shortcutText: "Ctrl+X"
            enabled: editor.selectedText.length > 0
            onTriggered: editor.cut()
        }
        ContextMenuItem {
            text: qsTr("Copy")
            shortcutText: "Ctrl+C"
            enabled: editor.selectedText.length > 0
            onTriggered: editor.copy()
        }
        ContextMenuItem {
            text: qsTr("Paste")
            shortcutText: "Ctrl+V"
            enabled: editor.canPaste
            onTriggered: editor.paste()
        }
        ContextMenuItem {
            text: qsTr("Select All")
            shortcutText: "Ctrl+A"
            onTriggered: editor.selectAll()
        }
    }
}
