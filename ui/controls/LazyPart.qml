// SPDX-License-Identifier: MIT
import QtQuick

// A part that is made, types and all, when it is first wanted, and then stays: most menus and sheets are
// never opened.
Loader {
    id: root

    required property url file
    // What it is made with.
    property var given: ({})
    property bool wanted: false
    // Before, the other properties need not have their values.
    property bool isComplete: false

    function part(): QtObject {
        if (!root.item)
            root.setSource(root.file, root.given);
        return root.item;
    }

    function makeIfWanted() {
        if (root.isComplete && root.wanted)
            root.part();
    }

    onWantedChanged: root.makeIfWanted()
    onIsCompleteChanged: root.makeIfWanted()
    Component.onCompleted: root.isComplete = true
}
