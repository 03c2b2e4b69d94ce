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
    property real pointSize: Theme.bodySize
    // It gets each key first, where there is one.
    property Item keysBefore

    function openMenu(x: real, y: real) {
        (menu.part() as EditorMenu).popup(root, x, y);
    }

    function openMenuByKey() {
        root.openMenu(editor.cursorRectangle.x, editor.cursorRectangle.y + editor.cursorRectangle.height);
    }

    function openMenuOnShift(event) {
        event.accepted = event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier;
        if (event.accepted)
            root.openMenuByKey();
    }

    function moveCursorToEnd() {
        editor.cursorPosition = editor.length;
    }

    function selectAll() {
        editor.selectAll();
    }

    implicitHeight: Math.max(root.minHeight, root.textSize.height)
    height: implicitHeight

    SizeExportingTextView {
        id: editor

        property string accessibleName

        anchors.fill: parent
        focus: true
        font.pointSize: root.pointSize
        activeFocusOnTab: true
        Accessible.name: editor.accessibleName
        Keys.forwardTo: [root.keysBefore]
        Keys.onMenuPressed: root.openMenuByKey()
        Keys.onPressed: event => root.openMenuOnShift(event)

        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.RightButton
            onPressed: mouse => root.openMenu(mouse.x, mouse.y)
        }
    }

    LazyPart {
        id: menu

        file: Qt.resolvedUrl("EditorMenu.qml")
        given: ({
                editor: editor
            })
    }
}
