// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Hearthmark.Controls
import Hearthmark.Ui

// Shows the whole of a note that is too long for the pane. There is nothing in it to lose, so a click
// beside it closes it as well.
Sheet {
    id: root

    property WholeNoteAdapter adapter

    title: qsTr("Note")
    preferredWidth: Theme.wideSheetWidth
    height: root.largestHeight
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

    contentItem: WholeNoteForm {
        focus: true
        adapter: root.adapter
        onClosed: root.close()
    }
}
