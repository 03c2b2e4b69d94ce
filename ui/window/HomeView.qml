// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The task list beside the selected task's detail, above both what was not noticed yet, and over
// all that pops up.
FocusScope {
    id: root

    required property HomeAdapter home

    // A bar that goes would take the keyboard along.
    function leave(bar: FocusScope) {
        if (bar.focus)
            sidebar.takeFocus();
    }

    function toggleHistory() {
        if (root.home.history)
            root.home.closeHistory();
        else
            root.home.openHistory();
    }

    // Called when the page has come or is going.
    function moveFocus() {
        if (root.home.history)
            history.forceActiveFocus(Qt.OtherFocusReason);
        else if (history.focus)
            sidebar.takeFocus();
    }

    // While a sheet or a menu has the keyboard, no key is for what lies behind it.
    Shortcut {
        sequences: Shortcuts.addTask
        enabled: root.activeFocus
        onActivated: sidebar.addTask()
    }

    Shortcut {
        sequences: Shortcuts.finishNewest
        enabled: root.activeFocus
        onActivated: root.home.finishNewest()
    }

    Shortcut {
        sequences: Shortcuts.showShortcuts
        enabled: root.activeFocus
        onActivated: (popups.part() as HomePopups).openShortcuts()
    }

    Shortcut {
        sequences: Shortcuts.undo
        enabled: root.activeFocus
        onActivated: root.home.undoMenu.undo()
    }

    Shortcut {
        sequences: Shortcuts.redo
        enabled: root.activeFocus
        onActivated: root.home.undoMenu.redo()
    }

    Shortcut {
        sequences: Shortcuts.history
        enabled: root.activeFocus
        onActivated: root.toggleHistory()
    }

    FinishBanner {
        id: banner

        width: parent.width
        finishes: root.home.unseenFinishes
        onVisibleChanged: root.leave(banner)
    }

    HomeSidebar {
        id: sidebar

        anchors.left: parent.left
        anchors.top: banner.bottom
        anchors.bottom: parent.bottom
        width: border.position
        focus: true
        home: root.home
        screen: root
        onMenuRequested: button => (popups.part() as HomePopups).openMenu(button)
    }

    Splitter {
        id: border

        z: 1 // it lies half over the pane
        anchors.left: sidebar.right
        anchors.leftMargin: -Math.floor(width / 2)
        anchors.top: banner.bottom
        anchors.bottom: parent.bottom
        text: qsTr("Border between list and task")
        usual: Theme.sidebarWidth
        least: Math.min(Theme.sidebarMinimumWidth, root.width / 2)
        most: Math.max(border.least, root.width - Theme.paneMinimumWidth)
    }

    Box {
        id: pane

        anchors.left: sidebar.right
        anchors.right: parent.right
        anchors.top: banner.bottom
        anchors.bottom: parent.bottom
        color: Theme.colors.content

        Column {
            anchors.centerIn: parent
            width: pane.width - 2 * Theme.pageMargin
            spacing: Theme.pageMargin
            visible: root.home.taskDetail === null && root.home.history === null

            Paragraph {
                text: qsTr("Select or create a task to see more.")
                font.pointSize: Theme.title3Size
                color: Theme.colors.secondaryText
                horizontalAlignment: Text.AlignHCenter
            }

            FocusChart {
                anchors.horizontalCenter: parent.horizontalCenter
                width: Math.min(Theme.chartWidth, parent.width)
                overview: root.home.overview
            }
        }

        // Its types are loaded for the first task that is selected.
        Loader {
            anchors.fill: parent
            anchors.leftMargin: 1
            anchors.bottomMargin: undoBar.visible ? undoBar.height + 2 * Theme.wideSpacing : 0
            active: root.home.taskDetail !== null && root.home.history === null
            Component.onCompleted: setSource(Qt.resolvedUrl("TaskDetailView.qml"), {
                home: root.home,
                screen: root
            })
        }
    }

    // In the place of the task. It takes the keyboard when it comes, and gives it back to the list.
    Loader {
        id: history

        anchors.fill: pane
        anchors.leftMargin: 1
        anchors.bottomMargin: undoBar.visible ? undoBar.height + 2 * Theme.wideSpacing : 0
        active: root.home.history !== null
        onActiveChanged: root.moveFocus()
        Component.onCompleted: setSource(Qt.resolvedUrl("HistoryPage.qml"), {
            home: root.home,
            screen: root
        })
    }

    UndoBar {
        id: undoBar

        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.wideSpacing
        anchors.horizontalCenter: pane.horizontalCenter
        maximumWidth: pane.width - 2 * Theme.spacing
        adapter: root.home.undo
        onVisibleChanged: root.leave(undoBar)
    }

    Announcer {
        adapter: root.home.focusAnnouncement
    }

    LazyPart {
        id: popups

        file: Qt.resolvedUrl("HomePopups.qml")
        given: ({
                home: root.home
            })
        wanted: root.home.isAddSheetDisplayed || root.home.updates.presented || root.home.fileTransfer.presented
    }
}
