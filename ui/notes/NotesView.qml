// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The notes section of the detail pane down to the note that is being written; the saved notes follow
// it as rows of the pane's list.
PartOverRow {
    id: root

    required property NotesAdapter adapter
    readonly property Item focusedItem: root.activeFocus ? root.Window.activeFocusItem : null

    function addNote() {
        root.adapter.addNote();
        root.focusFirst();
    }

    function focusFirst() {
        if (editors.count > 0)
            (editors.itemAt(0) as NoteEditor).focusText();
        else
            button.forceActiveFocus(Qt.OtherFocusReason);
    }

    function revealFocus() {
        if (!root.focusedItem)
            return;
        if (editors.count > 0)
            (editors.itemAt(0) as NoteEditor).revealFocus();
        else
            root.show(0, root.height);
    }

    function focusButton() {
        if (root.activeFocus)
            button.forceActiveFocus(Qt.OtherFocusReason);
    }

    visible: root.adapter.loaded
    implicitHeight: content.height + Theme.spacing
    onFocusedItemChanged: root.revealFocus()

    Column {
        id: content

        width: parent.width
        spacing: Theme.spacing

        SectionTitle {
            text: qsTr("Notes")
        }

        PushButton {
            id: button

            anchors.left: parent.left
            visible: root.adapter.canAddNote
            symbol: "plus"
            text: qsTr("Add Note")
            onClicked: root.addNote()
        }

        // At most one.
        Repeater {
            id: editors

            model: root.adapter.isWriting ? 1 : 0
            onItemRemoved: root.focusButton()

            NoteEditor {
                id: editor

                width: content.width
                focus: true
                notes: root.adapter
                onRevealed: (top, bottom) => root.show(content.y + editor.y + top, content.y + editor.y + bottom)
            }
        }
    }
}
