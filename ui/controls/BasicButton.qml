// SPDX-License-Identifier: MIT
import QtQuick

// What all buttons share. A click leaves the keyboard focus where it is, so a focused button was
// reached by the keyboard and shows it. The toolkit's own button would load a module of 2.6 MiB.
Item {
    id: root

    property string text
    readonly property alias hovered: area.containsMouse
    readonly property bool down: area.pressed && area.containsMouse

    signal clicked

    function press() {
        if (root.enabled)
            root.clicked();
    }

    // Ctrl+Enter belongs to the form that the button stands on.
    function pressByKey(event) {
        event.accepted = !(event.modifiers & Qt.ControlModifier);
        if (event.accepted && !event.isAutoRepeat)
            root.press();
    }

    activeFocusOnTab: true

    Accessible.role: Accessible.Button
    Accessible.name: root.text
    Accessible.focusable: root.enabled
    Accessible.onPressAction: root.press()
    Keys.onReturnPressed: event => root.pressByKey(event)
    Keys.onEnterPressed: event => root.pressByKey(event)
    Keys.onSpacePressed: event => root.pressByKey(event)

    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true
        onClicked: root.clicked()
    }
}
