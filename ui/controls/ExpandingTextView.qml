// SPDX-License-Identifier: MIT
import QtQuick

// A plain-text editor of several lines that is as tall as its text, and at least minHeight.
FocusScope {
    id: root

    property alias text: editor.text
    property alias cursorRectangle: editor.cursorRectangle
    property string accessibleName
    property real minHeight

    implicitHeight: Math.max(root.minHeight, editor.implicitHeight)
    height: implicitHeight

    TextEdit {
        id: editor

        anchors.fill: parent
        focus: true
        activeFocusOnTab: true
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
        Accessible.name: root.accessibleName
        Accessible.multiLine: true

        // A tab would be typed otherwise, and the keyboard could not leave the editor.
        Keys.onTabPressed: editor.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
        Keys.onBacktabPressed: editor.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)

        Keys.onMenuPressed: menu.popup(root, editor.cursorRectangle.x, editor.cursorRectangle.y + editor.cursorRectangle.height)

        HoverHandler {
            cursorShape: Qt.IBeamCursor
        }

        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.RightButton
            onPressed: mouse => menu.popup(root, mouse.x, mouse.y)
        }
    }

    ContextMenu {
        id: menu

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
