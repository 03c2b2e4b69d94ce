// SPDX-License-Identifier: MIT
pragma Singleton
import QtQuick

// The keys that act wherever in the window the keyboard is. What each does is where the action is, in a
// Shortcut that takes its sequences from here; the sheet that lists them shows the first of each.
QtObject {
    id: root

    readonly property var addTask: ["Ctrl+N"]
    readonly property var startShortFocus: ["Ctrl+1"]
    readonly property var startLongFocus: ["Ctrl+2"]
    readonly property var startOwnFocus: ["Ctrl+3"]
    readonly property var finishNewest: ["Ctrl+Shift+F"]
    readonly property var search: ["Ctrl+F"]
    readonly property var history: ["Ctrl+H"]
    readonly property var historyBack: ["Alt+Left"]
    readonly property var historyForward: ["Alt+Right"]
    readonly property var addNote: ["Ctrl+Shift+N"]
    readonly property var addInterval: ["Ctrl+Shift+I"]
    readonly property var markDone: ["Ctrl+Shift+D"]
    readonly property var share: ["Ctrl+E"]
    readonly property var undo: ["Ctrl+Z"]
    readonly property var redo: ["Ctrl+Shift+Z"]
    readonly property var showShortcuts: ["F1", "Ctrl+?"]
    readonly property var quit: ["Ctrl+Q"]

    // What they are called, in the order of the list, with what the controls themselves do at certain keys.
    readonly property var all: [
        [qsTr("Add a task"), root.addTask[0]],
        [qsTr("Search tasks and notes"), root.search[0]],
        [qsTr("Show the history, or leave it"), root.history[0]],
        [qsTr("Go back or forward in it"), qsTr("Alt+Left, Alt+Right")],
        [qsTr("Start a focus of 30 minutes"), root.startShortFocus[0]],
        [qsTr("Start a focus of an hour"), root.startLongFocus[0]],
        [qsTr("Start a focus of your own length"), root.startOwnFocus[0]],
        [qsTr("Finish the newest focus"), root.finishNewest[0]],
        [qsTr("Add a note"), root.addNote[0]],
        [qsTr("Add a past interval"), root.addInterval[0]],
        [qsTr("Be done with the task, or not"), root.markDone[0]],
        [qsTr("Share the task"), root.share[0]],
        [qsTr("Rename, edit or correct what is marked"), "F2"],
        [qsTr("Save the name or note"), "Ctrl+Enter"],
        [qsTr("Show the marked task"), qsTr("Enter")],
        [qsTr("Open the menu of the marked row"), qsTr("Menu")],
        [qsTr("Go to the first or last row"), qsTr("Home, End")],
        [qsTr("Go a page up or down"), qsTr("Page Up, Page Down")],
        [qsTr("Delete the marked row"), qsTr("Delete")],
        [qsTr("Undo the last change"), root.undo[0]],
        [qsTr("Do it again"), root.redo[0]],
        [qsTr("Close a sheet, a menu or the search"), qsTr("Escape")],
        [qsTr("Show this list"), root.showShortcuts[0]],
        [qsTr("Quit"), root.quit[0]]
    ]
}
