// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Ui

// A line of the detail pane's list: an interval that does not run, a note, or the empty place over
// which the notes section lies.
RowOfKind {
    id: root

    required property TaskDetailAdapter adapter
    required property int index
    required property int kind
    required property string text
    // Of a note that is too long, which ends with a button.
    required property bool isCut
    required property string began
    // Of an interval that is short of its length, which ends with a button.
    required property string continueText
    // The editor of its note lies over it.
    required property bool isEdited
    readonly property bool hasContinue: root.continueText.length > 0 && root.adapter.canStartFocus
    readonly property bool isPlace: root.kind === TaskDetailListModel.NotesSection

    // Of the notes section and of the editor, for their places.
    required property real notesHeight
    required property real editorHeight
    // Where the Tab key leaves the rows.
    required property RowsStop stop

    signal noteEditRequested
    signal placeMade
    signal editorPlaceMade
    // The keyboard has come to what the editor lies over.
    signal editorReached
    signal placeResized

    function tellMade() {
        if (root.isPlace)
            root.placeMade();
        else if (root.isEdited)
            root.editorPlaceMade();
    }

    function tellSize() {
        if ((root.isPlace || root.isEdited) && root.isComplete)
            root.placeResized();
    }

    function edit() {
        if (root.kind === TaskDetailListModel.Interval)
            root.adapter.correctInterval(root.index);
        else
            root.noteEditRequested();
    }

    function passFocusOn() {
        if (root.activeFocus && root.isEdited)
            root.editorReached();
    }

    function showEnd() {
        root.ListView.view.positionViewAtIndex(root.index, ListView.End);
    }

    // Of what the Tab key reaches in it.
    function focusLast() {
        if (root.isCut)
            (root.content as NotesItemGroupBoxStyle).focusButton();
        else if (root.hasContinue)
            (root.content as IntervalsItemGroupBoxStyle).focusButton();
        else
            root.forceActiveFocus(Qt.BacktabFocusReason);
    }

    function showWhole(event) {
        event.accepted = root.isCut;
        if (root.isCut)
            root.adapter.displayWholeNote(root.index);
    }

    function goForward() {
        if ((root.isCut || root.hasContinue) && root.activeFocus)
            root.focusLast();
        else
            root.stop.leaveForward();
    }

    function goBackward() {
        if (root.activeFocus)
            root.stop.leaveBackward();
        else
            root.forceActiveFocus(Qt.BacktabFocusReason);
    }

    shownKind: root.isPlace ? null : root.kind === TaskDetailListModel.Interval ? interval : note
    height: root.isPlace ? root.notesHeight : root.content?.height ?? 0
    visible: !root.isPlace
    onHeightChanged: root.tellSize()
    onIsCompleteChanged: root.tellMade()
    isEditable: !root.isPlace
    onEditRequested: root.edit()
    onDeletionRequested: root.adapter.rows.deleteRow(root.index)
    onIsEditedChanged: root.tellMade()
    onActiveFocusChanged: root.passFocusOn()
    Accessible.role: Accessible.ListItem
    Accessible.name: root.text
    Accessible.description: root.began
    Accessible.focusable: true
    Keys.onReturnPressed: event => root.showWhole(event)
    Keys.onEnterPressed: event => root.showWhole(event)
    Keys.onTabPressed: root.goForward()
    Keys.onBacktabPressed: root.goBackward()

    Component {
        id: interval

        IntervalsItemGroupBoxStyle {
            width: root.width
            row: root
            text: root.text
            began: root.began
            buttonText: root.continueText
            canPress: root.adapter.canStartFocus
            isButtonInChain: false // the row hands the focus on to it
            onPressed: root.adapter.continueInterval(root.index)
        }
    }

    Component {
        id: note

        NotesItemGroupBoxStyle {
            width: root.width
            row: root
            noteText: root.text
            isCut: root.isCut
            began: root.began
            editorHeight: root.isEdited ? root.editorHeight : 0
            onCopied: root.adapter.rows.copyRow(root.index)
            onButtonReached: root.showEnd()
            onWholeRequested: root.adapter.displayWholeNote(root.index)
        }
    }
}
