// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// Where a name or a note is edited: nothing while it is not. What had the keyboard gets it back.
FocusScope {
    id: root

    required property TextEditAdapter adapter
    required property bool isOpen
    required property string accessibleName
    property bool savesByEnter: false
    property real pointSize: Theme.bodySize
    property Item formerFocus

    // A part of this is to be brought on screen.
    signal revealed(top: real, bottom: real)
    // Nothing had the keyboard before, or that is gone.
    signal focusLost

    function writer(): TextWriter {
        return writers.itemAt(0) as TextWriter;
    }

    // To be called before it is opened.
    function rememberFocus() {
        if (!root.activeFocus)
            root.formerFocus = root.Window.activeFocusItem;
    }

    // One that was open before stays where it is.
    function enter() {
        if (!root.isOpen || root.activeFocus)
            return;
        root.writer().layOut();
        content.forceLayout();
        root.writer().beginAtEnd();
    }

    function revealFocus() {
        if (root.isOpen)
            root.writer().revealFocus();
    }

    function giveFocusBack() {
        if (!root.activeFocus)
            return;
        const former = root.formerFocus;
        root.formerFocus = null;
        if (former)
            former.forceActiveFocus(Qt.OtherFocusReason);
        else
            root.focusLost();
    }

    implicitHeight: content.height

    Column {
        id: content

        width: parent.width

        // At most one.
        Repeater {
            id: writers

            model: root.isOpen ? 1 : 0
            onItemRemoved: root.giveFocusBack()

            TextWriter {
                width: content.width
                focus: true
                adapter: root.adapter
                accessibleName: root.accessibleName
                savesByEnter: root.savesByEnter
                pointSize: root.pointSize
                canSave: root.adapter.canSave
                saveText: root.adapter.deletes ? qsTr("Delete") : qsTr("Save")
                discardText: qsTr("Cancel")
                onSaved: root.adapter.save()
                onDiscarded: root.adapter.leave()
                onRevealed: (top, bottom) => root.revealed(top, bottom)
                Keys.onEscapePressed: root.adapter.leave()
            }
        }
    }
}
