// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The note that is being written, which has at each moment what is typed here. Ctrl+Enter, anywhere in it,
// saves, since Enter alone begins a new line. Escape throws away an empty note only.
FocusScope {
    id: root

    required property NotesAdapter adapter

    // A part of this is to be brought on screen.
    signal revealed(top: real, bottom: real)

    function save() {
        root.adapter.saveNote(editor.textDocument);
    }

    function saveOnControl(event) {
        event.accepted = event.modifiers & Qt.ControlModifier;
        if (event.accepted)
            root.save();
    }

    function discardEmpty(event) {
        event.accepted = editor.text.length === 0;
        if (event.accepted)
            root.adapter.discardNote();
    }

    function focusText() {
        editor.forceActiveFocus(Qt.OtherFocusReason);
    }

    // What the keyboard acts on; with the last line of the text, and with a button, all below.
    function revealFocus() {
        const line = editor.cursorRectangle;
        const top = editor.y + editor.inset + line.y;
        const isLastLine = line.y + 2 * line.height > editor.textSize.height;
        root.revealed(top, isLastLine || !editor.activeFocus ? root.height : top + line.height);
    }

    implicitHeight: content.height
    Keys.onReturnPressed: event => root.saveOnControl(event)
    Keys.onEnterPressed: event => root.saveOnControl(event)
    Keys.onEscapePressed: event => root.discardEmpty(event)

    NoteTextBinding {
        adapter: root.adapter
        document: editor.textDocument
    }

    Column {
        id: content

        width: parent.width
        spacing: Theme.spacing

        EditorFrame {
            id: editor

            width: parent.width
            focus: true
            minHeight: Theme.noteEditorHeight
            accessibleName: qsTr("Note")
            onCursorRectangleChanged: root.revealFocus()
        }

        Row {
            spacing: Theme.spacing

            PushButton {
                enabled: root.adapter.canSave
                look: PushButton.Primary
                text: root.adapter.saveText
                onClicked: root.save()
            }

            PushButton {
                text: root.adapter.discardText
                onClicked: root.adapter.discardNote()
            }
        }
    }
}
