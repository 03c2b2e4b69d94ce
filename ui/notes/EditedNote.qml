// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Ui

// The editor of a saved note, over its row.
PartOverRow {
    id: root

    required property TaskDetailAdapter adapter

    // What had the keyboard before is gone, and the note, too.
    signal focusLost

    function edit(row: int) {
        editor.rememberFocus();
        root.adapter.editNote(row);
        root.enter();
    }

    function enter() {
        editor.rememberFocus();
        editor.enter();
        root.list.displaceFocus(); // once its row is as high
    }

    function enterFromPlace() {
        if (root.place?.activeFocus)
            root.enter();
    }

    // Once the list has changed: a row that it makes current while it does must not lose the keyboard.
    function enterSoon() {
        reaching.restart();
    }

    function giveFocusBack() {
        if (root.place)
            root.place.forceActiveFocus(Qt.OtherFocusReason);
        else
            root.focusLost();
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
        onFocusLost: root.giveFocusBack()
    }
}
