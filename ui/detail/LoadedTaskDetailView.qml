// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Ui

// What a task's pane scrolls through: a header, the other intervals, the place of the notes section, the notes.
HeadedListView {
    id: root

    required property TaskDetailAdapter adapter
    required property OverviewAdapter overview
    readonly property int notesRow: root.rows.notesRow
    readonly property bool canWrite: root.adapter.notes.canAddNote || root.adapter.notes.isWriting

    signal menuRequested(row: DeletableRow, position: point)

    function revealFocus() {
        if (header.activeFocus)
            header.revealFocus();
        else if (notes.activeFocus)
            notes.revealFocus();
        else if (edited.activeFocus)
            edited.revealFocus();
        else if (root.activeFocus && root.currentIndex >= 0)
            root.showRow(root.currentIndex);
    }

    // With no row of the new task under the keyboard, else one would be deleted by a key meant for the old.
    function showAnew() {
        root.changeModel(root.rows, rowDelegate);
        root.currentIndex = -1;
        if (root.activeFocus)
            header.focusFirst();
        root.showTop();
    }

    // The task may be gone, and with it whatever of the notes could have the keyboard.
    function addNote() {
        if (root.canWrite)
            notes.addNote();
    }

    // The row after one that is deleted becomes current, and that may be the place of the notes. After the
    // last one the list itself has the focus, which nothing shows.
    function keepRowCurrent() {
        root.forceLayout();
        if (root.currentIndex === root.notesRow && root.count > 1)
            root.currentIndex = root.rows.rowNearest(root.notesRow);
        else if (root.currentIndex === root.notesRow || root.Window.activeFocusItem === root)
            root.leaveLastRow();
    }

    function leaveLastRow() {
        root.currentIndex = -1;
        if (root.activeFocus && root.canWrite)
            notes.focusFirst();
        else if (root.activeFocus)
            header.focusFirst();
    }

    onRowsChanged: root.showAnew()
    onFocusDisplaced: root.revealFocus()
    head: header
    rows: root.adapter.rows
    Accessible.name: qsTr("Intervals and notes")

    Component {
        id: rowDelegate

        TaskDetailRow {
            id: row

            width: root.columnWidth
            transform: Translate { x: root.columnX } // from 6.5 on a list gives its rows an x of its own
            notesHeight: notes.height
            adapter: root.adapter
            editorHeight: edited.height
            stop: row.index < root.notesRow ? intervalsStop : notesStop
            onFocused: root.showRow(row.index)
            onMenuRequested: position => root.menuRequested(row, position)
            onNoteEditRequested: edited.edit(row.index)
            onEditorReached: edited.enterSoon()
            onEditorPlaceMade: edited.place = row
            onPlaceMade: notes.place = row
            onPlaceResized: root.displaceFocus() // with its editor, which takes what has the focus along
            Keys.forwardTo: [root.rowKeys]
        }
    }

    Connections {
        target: root.adapter
        function onRowsShown() {
            root.keepRowCurrent();
        }
    }

    // In the order of the Tab key, above the rows: an editor lies over its own.
    Item {
        parent: root.contentItem
        z: 2 // the toolkit gives rows 1

        TaskDetailHeader {
            id: header

            x: root.columnX
            y: root.originY - header.height
            width: root.columnWidth
            adapter: root.adapter
            overview: root.overview
            onFocusMoved: root.displaceFocus()
            onRevealed: bottom => root.showHead(bottom)
            onActiveFocusChanged: root.leaveRows(header)
            onMenuRequested: (row, position) => root.menuRequested(row, position)
        }

        RowsStop {
            id: intervalsStop

            list: root
            row: 0
            count: root.notesRow
        }

        NotesView {
            id: notes

            list: root
            row: root.notesRow
            adapter: root.adapter.notes
        }

        EditedNote {
            id: edited

            list: root
            adapter: root.adapter
            onFocusLost: root.leaveLastRow()
        }

        RowsStop {
            id: notesStop

            list: root
            row: root.notesRow + 1
            count: root.count - notesStop.row
        }
    }
}
