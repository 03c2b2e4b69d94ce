// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// A row of a list that can be chosen and deleted. A click chooses it. A right click, the Menu key and
// Shift+F10 ask for its context menu, the Delete key asks to delete it at once, and F2 asks to edit it.
Item {
    id: root

    // Whether it got the keyboard by a click. If not, it is marked, so that one sees what the Delete key
    // would delete, which asks no question.
    property bool clicked: false
    // Whether the arrow keys, or others that walk the rows, have just come here.
    property bool isWalkedTo: false
    // Whether a part of its text is marked. The Delete key then means that part, and does nothing.
    property bool isTextMarked: false
    // Marked too while its menu is open.
    property bool menuOpen: false
    // Else F2 is for what it is in.
    property bool isEditable: false
    // Else it has no menu either.
    property bool isDeletable: true
    readonly property bool focusVisible: root.menuOpen || root.activeFocus && !root.clicked
    readonly property alias hovered: area.containsMouse

    signal focused
    signal tapped
    signal deletionRequested
    signal editRequested
    signal menuRequested(position: point)

    function changeFocus() {
        if (root.activeFocus) {
            root.focused();
        } else {
            root.clicked = false;
            root.isWalkedTo = false;
        }
    }

    function pressDelete() {
        if (root.isDeletable && !root.isTextMarked)
            root.deletionRequested();
    }

    function openMenu(position: point) {
        if (root.isDeletable)
            root.menuRequested(position);
    }

    function requestMenu() {
        const x = root.LayoutMirroring.enabled ? root.width - Theme.menuWidth - Theme.wideSpacing : Theme.wideSpacing;
        root.openMenu(Qt.point(x, root.height + Theme.tightSpacing));
    }

    function takeFocus() {
        root.forceActiveFocus(Qt.MouseFocusReason);
        root.clicked = true;
    }

    function press(mouse) {
        root.takeFocus();
        if (mouse.button === Qt.RightButton)
            root.openMenu(Qt.point(mouse.x, mouse.y));
    }

    function click(mouse) {
        if (mouse.button === Qt.LeftButton)
            root.tapped();
    }

    function pressKey(event) {
        root.clicked = false;
        root.isWalkedTo = false;
        const isMenu = event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier;
        const isEdit = event.key === Qt.Key_F2 && root.isEditable;
        event.accepted = isMenu || isEdit;
        if (isMenu)
            root.requestMenu();
        else if (isEdit)
            root.editRequested();
    }

    onActiveFocusChanged: root.changeFocus()
    Keys.onDeletePressed: root.pressDelete()
    Keys.onMenuPressed: root.requestMenu()
    Keys.onPressed: event => root.pressKey(event)

    MouseArea {
        id: area

        anchors.fill: parent
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        hoverEnabled: true
        onPressed: mouse => root.press(mouse)
        onClicked: mouse => root.click(mouse)
    }
}
