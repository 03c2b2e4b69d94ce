// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

// What all buttons share. A click leaves the keyboard focus where it is, so a focused button was
// reached by the keyboard and shows it.
T.Button {
    id: root

    function press() {
        if (root.enabled)
            root.clicked();
    }

    // Ctrl+Enter belongs to the form that the button stands on.
    function pressByEnter(event) {
        event.accepted = !(event.modifiers & Qt.ControlModifier);
        if (event.accepted)
            root.press();
    }

    focusPolicy: Qt.TabFocus
    hoverEnabled: true

    Accessible.role: Accessible.Button
    Accessible.name: root.text
    Accessible.focusable: root.enabled
    Accessible.onPressAction: root.press()
    Keys.onReturnPressed: event => root.pressByEnter(event)
    Keys.onEnterPressed: event => root.pressByEnter(event)
}
