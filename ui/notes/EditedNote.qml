// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The editor of a saved note, over its row.
PartOverRow {
    id: root

    required property TaskDetailAdapter adapter

    // There is nobody left whom the keyboard could go back to.
    signal focusLost

    function edit(row: int) {
        editor.rememberFocus();
        root.adapter.editNote(row);
        root.enter();
    }

    function enter() {
        editor.rememberFocus();
        editor.enter();
    }

    function enterFromPlace() {
        if (root.place?.activeFocus)
            root.enter();
    }

    // Once the list has changed: a row that it makes current while it does must not lose the keyboard.
    function enterSoon() {
        reaching.restart();
    }

    function revealFocus() {
        editor.revealFocus();
    }

    implicitHeight: editor.implicitHeight
    row: root.adapter.rows.editedRow

    Timer {
        id: reaching

        interval: 0
        onTriggered: root.enterFromPlace()
    }

    TextInPlace {
        id: editor

        width: parent.width
        focus: true
        adapter: root.adapter.edit
        isOpen: root.adapter.edit.isNote
        accessibleName: qsTr("Text of the note")
        onRevealed: (top, bottom) => root.show(top, bottom)
        onFocusLost: root.focusLost()
    }
}
