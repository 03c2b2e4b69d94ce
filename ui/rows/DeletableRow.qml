// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// A row that a click, the keyboard and a context menu act on. A right click, the Menu key and
// Shift+F10 ask for the menu; the Delete key asks for the deletion itself.
Item {
    id: root

    // The Delete key asks no question, so the row that it would delete is marked, unless the person has
    // just clicked on it.
    property bool clicked: false
    // The arrow keys, or those like them, have just come here.
    property bool isWalkedTo: false
    // Then the Delete key means that, and does nothing.
    property bool isTextMarked: false
    // Marked too while its menu is open.
    property bool menuOpen: false
    readonly property bool focusVisible: root.menuOpen || root.activeFocus && !root.clicked
    readonly property alias hovered: area.containsMouse

    signal focused
    signal tapped
    signal deletionRequested
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
        if (!root.isTextMarked)
            root.deletionRequested();
    }

    function requestMenu() {
        const x = root.LayoutMirroring.enabled ? root.width - Theme.menuWidth - Theme.wideSpacing : Theme.wideSpacing;
        root.menuRequested(Qt.point(x, root.height + Theme.tightSpacing));
    }

    function takeFocus() {
        root.forceActiveFocus(Qt.MouseFocusReason);
        root.clicked = true;
    }

    function press(mouse) {
        root.takeFocus();
        if (mouse.button === Qt.RightButton)
            root.menuRequested(Qt.point(mouse.x, mouse.y));
    }

    function click(mouse) {
        if (mouse.button === Qt.LeftButton)
            root.tapped();
    }

    function pressKey(event) {
        root.clicked = false;
        root.isWalkedTo = false;
        event.accepted = event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier;
        if (event.accepted)
            root.requestMenu();
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
