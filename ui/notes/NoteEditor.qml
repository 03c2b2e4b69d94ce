// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The note that is being written. Escape throws away an empty one only.
TextWriter {
    id: root

    required property NotesAdapter notes

    function discardEmpty(event) {
        event.accepted = root.isEmpty;
        if (event.accepted)
            root.notes.discardNote();
    }

    adapter: root.notes
    minHeight: Theme.noteEditorHeight
    accessibleName: qsTr("Note")
    canSave: root.notes.canSave
    saveText: root.notes.saveText
    discardText: root.notes.discardText
    onSaved: root.notes.saveNote(root.textDocument)
    onDiscarded: root.notes.discardNote()
    Keys.onEscapePressed: event => root.discardEmpty(event)
}
