// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// A row that a click, the keyboard and a context menu act on. A right click, the Menu key and
// Shift+F10 ask for the menu; the Delete key asks for the deletion itself.
Item {
    id: root

    // Whether the keyboard is what the row is being used with: focus that came by a click, or with the
    // window, needs no ring.
    property bool keyboardInUse: false
    readonly property bool focusVisible: root.activeFocus && root.keyboardInUse
    readonly property alias hovered: area.containsMouse

    signal focused
    signal tapped
    signal deletionRequested
    signal menuRequested(position: point)

    function changeFocus() {
        if (root.activeFocus)
            root.focused();
        else
            root.keyboardInUse = false;
    }

    function showFocus() {
        root.keyboardInUse = true;
    }

    function requestMenu() {
        root.menuRequested(Qt.point(Theme.wideSpacing, root.height));
    }

    function press(mouse) {
        root.keyboardInUse = false;
        root.forceActiveFocus(Qt.MouseFocusReason);
        if (mouse.button === Qt.RightButton)
            root.menuRequested(Qt.point(mouse.x, mouse.y));
    }

    function click(mouse) {
        if (mouse.button === Qt.LeftButton)
            root.tapped();
    }

    function pressKey(event) {
        root.keyboardInUse = true;
        event.accepted = event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier;
        if (event.accepted)
            root.requestMenu();
    }

    // The key that brought the focus here is released here.
    function releaseKey(event) {
        root.keyboardInUse = true;
        event.accepted = false;
    }

    onActiveFocusChanged: root.changeFocus()
    Keys.onDeletePressed: root.deletionRequested()
    Keys.onMenuPressed: root.requestMenu()
    Keys.onPressed: event => root.pressKey(event)
    Keys.onReleased: event => root.releaseKey(event)

    MouseArea {
        id: area

        anchors.fill: parent
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        hoverEnabled: true
        onPressed: mouse => root.press(mouse)
        onClicked: mouse => root.click(mouse)
    }
}
