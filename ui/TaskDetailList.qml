// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Hearthmark.Controls
import Hearthmark.Ui

// What a task's pane scrolls through: the other intervals, the place of the notes section, and the
// notes; above them, as its header, the rest.
ListView {
    id: root

    required property TaskDetailAdapter adapter
    required property OverviewAdapter overview
    readonly property int notesRow: root.adapter.rows.notesRow

    // Absent while it is too far out of sight; the notes section itself stays, since a note may be
    // half written in it.
    property Item notesPlace
    property real shownTopMargin

    signal menuRequested(row: DeletableRow, position: point)

    function showTop() {
        root.contentY = root.originY - root.topMargin;
    }

    function showRow(row: int) {
        root.currentIndex = row;
        root.positionViewAtIndex(row, ListView.Contain);
    }

    function showNotes(top: real, bottom: real) {
        if (!root.notesPlace)
            root.positionViewAtIndex(root.notesRow, ListView.Contain);
        root.forceLayout();
        const wanted = Math.max(notes.y + bottom + Theme.spacing - root.height, root.contentY);
        root.contentY = Math.min(notes.y + top, wanted);
    }

    // With no row of the new task under the keyboard, else one would be deleted by a key meant for the old.
    function showAnew() {
        root.currentIndex = -1;
        if (root.activeFocus)
            header.forceActiveFocus(Qt.OtherFocusReason);
        root.showTop();
    }

    function addNote() {
        notes.addNote();
    }

    // A row that stays current would take the focus when the rows before it change.
    function leaveRows(part: Item) {
        if (part.activeFocus)
            root.currentIndex = -1;
    }

    // The row after one that is deleted becomes current, and that may be the place of the notes.
    function keepRowCurrent() {
        root.forceLayout();
        if (root.currentIndex !== root.notesRow)
            return;
        if (root.count > 1)
            root.currentIndex = root.adapter.rows.rowNearest(root.notesRow);
        else
            notes.focusFirst();
    }

    // A header that grows while it is in sight pushes the rows down instead of itself up.
    function followHeader() {
        const top = root.originY - root.topMargin;
        // Where one shrank the toolkit keeps the top itself.
        const isFollowed = root.topMargin < root.shownTopMargin && root.contentY <= top;
        if (root.contentY <= root.originY && !isFollowed)
            root.contentY = Math.max(top, root.contentY - root.topMargin + root.shownTopMargin);
        root.shownTopMargin = root.topMargin;
    }

    onModelChanged: root.showAnew()
    onTopMarginChanged: root.followHeader()

    clip: true
    topMargin: header.height
    bottomMargin: Theme.pageMargin
    spacing: Theme.spacing
    cacheBuffer: Theme.controlHeight * 2
    boundsBehavior: Flickable.StopAtBounds
    highlightMoveDuration: 0
    keyNavigationEnabled: false
    // No row is current until the keyboard reaches one, else a new row would take the focus away from
    // the buttons above.
    currentIndex: -1
    model: root.adapter.rows
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Intervals and notes")
    T.ScrollBar.vertical: ScrollBar {}

    delegate: BoxRow {
        id: row

        required property int index
        required property int kind
        readonly property bool isPlace: row.kind === TaskDetailListModel.NotesSection
        readonly property RowsStop stop: row.index < root.notesRow ? intervalsStop : notesStop

        function takePlace() {
            if (row.isPlace)
                root.notesPlace = row;
        }

        // An editor that grows, or goes, takes what has the focus along.
        function followNotes() {
            if (root.notesPlace === row)
                notes.revealFocus();
        }

        width: root.width
        height: row.isPlace ? notes.height : row.implicitHeight
        visible: !row.isPlace
        symbol: row.kind === TaskDetailListModel.Interval ? "clock" : ""
        onFocused: root.showRow(row.index)
        onDeletionRequested: root.adapter.rows.deleteRow(row.index)
        onMenuRequested: position => root.menuRequested(row, position)
        onHeightChanged: row.followNotes()
        Component.onCompleted: row.takePlace()
        Keys.onTabPressed: row.stop.leaveForward()
        Keys.onBacktabPressed: row.stop.leaveBackward()
        Keys.onUpPressed: root.showRow(root.adapter.rows.rowBefore(row.index))
        Keys.onDownPressed: root.showRow(root.adapter.rows.rowAfter(row.index))
    }

    Connections {
        target: root.adapter
        function onRowsShown() {
            root.keepRowCurrent();
        }
    }

    // In the order of the Tab key.
    Item {
        parent: root.contentItem

        TaskDetailHeader {
            id: header

            y: root.originY - header.height
            width: root.width
            adapter: root.adapter
            overview: root.overview
            onReached: root.showTop()
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

            y: root.notesPlace ? root.notesPlace.y : header.y - notes.height
            width: root.width
            height: notes.implicitHeight
            adapter: root.adapter.notes
            onRevealed: (top, bottom) => root.showNotes(top, bottom)
            onActiveFocusChanged: root.leaveRows(notes)
        }

        RowsStop {
            id: notesStop

            list: root
            row: root.notesRow + 1
            count: root.count - notesStop.row
        }
    }
}
