// SPDX-License-Identifier: MIT
import QtQuick

// What all buttons share. A click leaves the keyboard focus where it is, so a focused button was
// reached by the keyboard and shows it. The toolkit's own button would load a module of 2.6 MiB.
Item {
    id: root

    property string text
    readonly property alias hovered: area.containsMouse
    readonly property bool down: root.spaceHeld || area.pressed && area.containsMouse
    property bool spaceHeld: false

    signal clicked

    function press() {
        if (root.enabled)
            root.clicked();
    }

    // Ctrl+Enter belongs to the form that the button stands on.
    function pressByEnter(event) {
        event.accepted = !(event.modifiers & Qt.ControlModifier);
        if (event.accepted && !event.isAutoRepeat)
            root.press();
    }

    // The space bar acts when it is let go, else what opens would take its repetitions.
    function releaseKey(event) {
        event.accepted = root.spaceHeld && event.key === Qt.Key_Space;
        if (event.accepted && !event.isAutoRepeat) {
            root.spaceHeld = false;
            root.press();
        }
    }

    activeFocusOnTab: true

    Accessible.role: Accessible.Button
    Accessible.name: root.text
    Accessible.focusable: root.enabled
    Accessible.onPressAction: root.press()
    onActiveFocusChanged: root.spaceHeld = false
    Keys.onReturnPressed: event => root.pressByEnter(event)
    Keys.onEnterPressed: event => root.pressByEnter(event)
    Keys.onSpacePressed: root.spaceHeld = true
    Keys.onReleased: event => root.releaseKey(event)

    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true
        onClicked: root.clicked()
    }
}
