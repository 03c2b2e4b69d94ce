// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Ui

// A line of the detail pane's list: an interval that does not run, a note, or the empty place over
// which the notes section lies.
BoxRow {
    id: root

    required property int index
    required property int kind
    readonly property bool isPlace: root.kind === TaskDetailListModel.NotesSection

    // Of the notes section, for its place.
    required property real notesHeight
    // Where the Tab key leaves the rows.
    required property RowsStop stop

    signal steppedUp
    signal steppedDown

    height: root.isPlace ? root.notesHeight : root.implicitHeight
    visible: !root.isPlace
    symbol: root.kind === TaskDetailListModel.Interval ? "clock" : ""
    isSelectable: root.kind === TaskDetailListModel.Note
    Keys.onTabPressed: root.stop.leaveForward()
    Keys.onBacktabPressed: root.stop.leaveBackward()
    Keys.onUpPressed: root.steppedUp()
    Keys.onDownPressed: root.steppedDown()
}
