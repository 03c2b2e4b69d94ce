// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Hearthmark.Controls

// A sheet with a long text to read and copy, by the key of copying as well. There is nothing in it to
// lose, so a click beside it closes it; without a text it has no button that would.
Sheet {
    id: root

    signal copied

    function copy() {
        root.copied();
        root.close();
    }

    function copyOnControl(event) {
        event.accepted = root.contentItem.visible && event.key === Qt.Key_C && event.modifiers === Qt.ControlModifier;
        if (event.accepted)
            root.copy();
    }

    preferredWidth: Theme.wideSheetWidth
    height: root.largestHeight
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    onKeyPressed: event => root.copyOnControl(event)

    buttons: [
        PushButton {
            text: qsTr("Close")
            onClicked: root.close()
        },
        PushButton {
            look: PushButton.Primary
            symbol: "doc.on.doc"
            text: qsTr("Copy")
            onClicked: root.copy()
        }
    ]
}
