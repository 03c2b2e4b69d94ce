// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The field above the list that says what is searched for in it.
FocusScope {
    id: root

    required property TaskListAdapter adapter

    // To the first match.
    signal leftDownwards
    // It, by Enter.
    signal chosen
    signal closed

    // With what was typed elsewhere behind its text; else all of that marked, so that what is typed takes
    // its place.
    function takeFocus(typed: string) {
        input.forceActiveFocus(Qt.ShortcutFocusReason);
        input.cursorPosition = input.length;
        input.insert(input.length, typed);
        if (typed === "")
            input.selectAll();
    }

    // Its history, too.
    function empty() {
        input.text = "";
    }

    // Selected, it goes in a step of its own, which can be taken back.
    function clear() {
        input.selectAll();
        input.clear();
        input.forceActiveFocus(Qt.OtherFocusReason);
    }

    implicitHeight: frame.height + Theme.spacing

    FocusFrame {
        id: frame

        x: Theme.spacing
        width: root.width - 2 * Theme.spacing
        height: Math.max(Theme.controlHeight, input.implicitHeight)
        framed: input
        radius: Theme.controlRadius
        usualBorder: Theme.colors.fieldBorder
    }

    TextInput {
        id: input

        anchors.left: frame.left
        anchors.right: clearButton.left
        anchors.verticalCenter: frame.verticalCenter
        height: frame.height
        leftPadding: Theme.spacing
        rightPadding: Theme.tightSpacing
        topPadding: Theme.tightSpacing
        bottomPadding: Theme.tightSpacing
        focus: true
        activeFocusOnTab: true
        clip: true
        color: Theme.colors.text
        selectionColor: Theme.colors.selectedContent
        selectedTextColor: Theme.colors.selectedText
        font.pointSize: Theme.bodySize
        verticalAlignment: TextInput.AlignVCenter
        selectByMouse: true
        onTextChanged: root.adapter.search(input.text)
        Keys.onReturnPressed: root.chosen()
        Keys.onEnterPressed: root.chosen()
        Keys.onDownPressed: root.leftDownwards()
        Accessible.role: Accessible.EditableText
        Accessible.name: qsTr("Search tasks and notes")
        Accessible.description: root.adapter.matches

        HoverHandler {
            cursorShape: Qt.IBeamCursor
        }
    }

    Label {
        anchors.fill: input
        leftPadding: input.leftPadding
        verticalAlignment: Text.AlignVCenter
        visible: input.length === 0 && input.preeditText.length === 0
        text: qsTr("Search tasks and notes")
        elide: Text.ElideRight
        color: Theme.colors.secondaryText
        Accessible.ignored: true
    }

    SymbolButton {
        id: clearButton

        anchors.right: frame.right
        anchors.verticalCenter: frame.verticalCenter
        visible: input.length > 0
        symbol: "xmark"
        text: qsTr("Clear the search")
        onClicked: root.clear()
    }

    Keys.onEscapePressed: root.closed()
}
