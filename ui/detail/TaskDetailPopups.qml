// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Ui

// The sheets over a task's pane, and the menu of its rows.
Item {
    id: root

    // Its adapter is another one for each task.
    required property TaskDetailView view

    function openMenu(row: DeletableRow, position: point) {
        menu.openFor(row, position);
    }

    DeleteMenu {
        id: menu
    }

    ShareContainerView {
        visible: root.view.adapter.isShareSheetDisplayed
        adapter: root.view.adapter.share
        onClosed: root.view.adapter.dismissShareSheet()
    }

    CorrectIntervalSheet {
        visible: root.view.adapter.correction !== null
        adapter: root.view.adapter.correction
        onClosed: root.view.adapter.dismissCorrection()
    }

    WholeNoteSheet {
        visible: root.view.adapter.wholeNote !== null
        adapter: root.view.adapter.wholeNote
        onClosed: root.view.adapter.dismissWholeNote()
    }
}
