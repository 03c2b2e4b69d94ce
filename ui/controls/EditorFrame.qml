// SPDX-License-Identifier: MIT
import QtQuick

// An expanding editor in its rounded field. Beyond maximumHeight the text scrolls under the cursor.
FocusScope {
    id: root

    property alias text: editor.text
    readonly property alias textDocument: editor.textDocument
    property alias minHeight: editor.minHeight
    property alias accessibleName: editor.accessibleName
    property alias pointSize: editor.pointSize
    property alias keysBefore: editor.keysBefore
    readonly property alias cursorRectangle: editor.cursorRectangle
    readonly property alias textSize: editor.textSize
    property real maximumHeight: Infinity
    readonly property int inset: 4

    function showCursor() {
        const top = editor.cursorRectangle.y;
        const bottom = top + editor.cursorRectangle.height;
        scroller.contentY = Math.max(bottom - scroller.height, Math.min(top, scroller.contentY));
    }

    function moveCursorToEnd() {
        editor.moveCursorToEnd();
    }

    function selectAll() {
        editor.selectAll();
    }

    implicitHeight: Math.min(root.maximumHeight, editor.height + 2 * root.inset)

    FocusFrame {
        anchors.fill: parent
        framed: root
        usualBorder: Theme.colors.fieldBorder
    }

    Flickable {
        id: scroller

        anchors.fill: parent
        anchors.margins: root.inset
        contentHeight: editor.height
        boundsBehavior: Flickable.StopAtBounds
        // What has nothing to scroll leaves the wheel to what is around it.
        interactive: contentHeight > height
        clip: interactive

        ExpandingTextView {
            id: editor

            width: scroller.width
            focus: true
            onCursorRectangleChanged: root.showCursor()
        }

        ScrollBar {
            flickable: scroller
        }
    }
}
