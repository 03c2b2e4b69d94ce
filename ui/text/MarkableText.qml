// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// The text of a row, of which the mouse marks a part. The key of copying copies that, or all.
ReadOnlyText {
    id: root

    required property DeletableRow row

    signal allCopied

    function press(isPressed: bool) {
        if (isPressed)
            root.row.takeFocus();
    }

    function copyMarkedOrAll() {
        if (root.selectedText.length > 0)
            root.copy();
        else
            root.allCopied();
    }

    function leave() {
        if (!root.row?.activeFocus)
            root.deselect();
    }

    selectByMouse: true
    Accessible.ignored: true

    TapHandler {
        id: handler

        gesturePolicy: TapHandler.DragThreshold
        onPressedChanged: root.press(handler.pressed)
    }

    Shortcut {
        sequence: "Ctrl+C"
        enabled: root.row?.activeFocus ?? false // none while the row goes
        onActivated: root.copyMarkedOrAll()
    }

    Binding {
        target: root.row
        property: "isTextMarked"
        value: root.selectedText.length > 0
    }

    Connections {
        target: root.row
        function onActiveFocusChanged() {
            root.leave();
        }
    }
}
