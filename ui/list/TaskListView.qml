// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The task list with the menu of its rows, and above it the field of a search. Empty until there is a state
// to show.
FocusScope {
    id: root

    required property TaskListAdapter adapter
    readonly property bool atTop: root.adapter.isSearchOpen || list.atYBeginning
    // A search that finds nothing leaves the keyboard where it is.
    readonly property bool isEmpty: root.adapter.loaded && !root.adapter.isSearchOpen && list.currentIndex < 0

    // Of the selected task.
    signal renameRequested

    function showNewest() {
        const row = root.adapter.newestRow();
        if (row >= 0)
            list.showTask(root.adapter.rows.stopNearest(row));
    }

    function reachedStop(): int {
        return root.adapter.rows.stopNearest(Math.max(0, root.adapter.reachedRow()));
    }

    // With the key that was pressed in the list, if any.
    function openSearch(typed: string) {
        root.reachCurrent();
        root.adapter.openSearch();
        (search.part() as SearchField).takeFocus(typed);
    }

    function closeSearch() {
        root.reachCurrent();
        root.adapter.closeSearch();
        (search.item as SearchField).empty();
        list.forceLayout();
        list.showTask(root.reachedStop());
        list.takeFocus();
    }

    function showMatches() {
        const match = root.adapter.rows.firstMatch();
        list.showFromTop(match < 0 ? root.reachedStop() : match);
    }

    // A done task that starts comes from elsewhere, but is what the keyboard was on.
    function followStart() {
        const row = list.activeFocus ? root.adapter.reachedRunningRow() : -1;
        list.keepTaskCurrent();
        if (row >= 0 && row !== list.currentIndex)
            list.showTask(row);
    }

    function goToFirstMatch() {
        const row = root.adapter.rows.firstMatch();
        if (row < 0)
            return;
        list.takeFocus();
        list.walkTo(row);
    }

    function chooseFirstMatch() {
        root.goToFirstMatch();
        if (list.activeFocus)
            root.adapter.rows.tap(list.currentIndex);
    }

    function goToField() {
        if (root.adapter.isSearchOpen)
            root.openSearch("");
    }

    function pressKey(event) {
        event.accepted = true;
        if (event.key === Qt.Key_Escape && root.adapter.isSearchOpen)
            root.closeSearch();
        else if (root.adapter.isTyping(event.text, event.modifiers))
            root.openSearch(event.text);
        else
            event.accepted = false;
    }

    function reachCurrent() {
        if (list.activeFocus)
            root.adapter.reach(list.currentIndex);
    }

    LazyPart {
        id: search

        width: parent.width
        height: root.adapter.isSearchOpen ? search.implicitHeight : 0
        visible: root.adapter.isSearchOpen
        file: Qt.resolvedUrl("SearchField.qml")
        given: ({
                adapter: root.adapter
            })
    }

    Connections {
        target: search.item as SearchField
        function onLeftDownwards() {
            root.goToFirstMatch();
        }
        function onChosen() {
            root.chooseFirstMatch();
        }
        function onClosed() {
            root.closeSearch();
        }
    }

    Box {
        anchors.bottom: list.top
        width: parent.width
        height: 1
        visible: root.adapter.isSearchOpen && !list.atYBeginning
        color: Theme.colors.separator
    }

    LoadedTaskListView {
        id: list

        anchors.top: search.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        visible: root.adapter.loaded
        focus: true
        rows: root.adapter.rows
        onRenameRequested: root.renameRequested()
        onMenuRequested: (row, position) => (menu.part() as DeleteMenu).openFor(row, position)
        onLeftUpwards: root.goToField()
        onActiveFocusChanged: root.reachCurrent()
        onCurrentIndexChanged: root.reachCurrent()
        Keys.onPressed: event => root.pressKey(event)
    }

    Connections {
        target: root.adapter
        function onStateShown() {
            root.followStart();
        }
        function onMatchesShown() {
            root.showMatches();
        }
    }

    LazyPart {
        id: menu

        file: Qt.resolvedUrl("DeleteMenu.qml")
    }
}
