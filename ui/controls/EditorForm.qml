// SPDX-License-Identifier: MIT
import QtQuick

// What stands around an editor of several lines. Ctrl+Enter, anywhere in it, saves, since Enter alone
// begins a new line.
FocusScope {
    id: root

    signal saveRequested

    function saveOnControl(event) {
        event.accepted = event.modifiers & Qt.ControlModifier;
        if (event.accepted)
            root.saveRequested();
    }

    Keys.onReturnPressed: event => root.saveOnControl(event)
    Keys.onEnterPressed: event => root.saveOnControl(event)
}
