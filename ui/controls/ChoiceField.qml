// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick

// A choice among many names, below what it is called: a button that opens their list in place. Letters go to the
// next name that begins with them.
FocusScope {
    id: root

    required property string label
    required property var names
    required property int current
    // Finds the next name after an index that begins with a text; -1 where there is none.
    required property var find
    readonly property bool isOpen: list.visible
    property string typed

    signal chosen(index: int)

    function open() {
        list.visible = true;
        list.currentIndex = Math.max(0, root.current);
        list.positionViewAtIndex(list.currentIndex, ListView.Center);
        list.forceActiveFocus(Qt.PopupFocusReason);
    }

    function close() {
        list.visible = false;
        button.forceActiveFocus(Qt.PopupFocusReason);
    }

    function choose(index: int) {
        root.chosen(index);
        root.close();
    }

    function type(event) {
        event.accepted = event.text.trim().length > 0 && !(event.modifiers & (Qt.ControlModifier | Qt.AltModifier));
        if (!event.accepted)
            return;
        root.typed += event.text;
        forgetting.restart();
        const found = root.find(list.currentIndex + (root.typed.length > 1 ? 0 : 1), root.typed);
        if (found >= 0)
            list.currentIndex = found;
    }

    implicitHeight: column.height

    Timer {
        id: forgetting

        interval: 1000
        onTriggered: root.typed = ""
    }

    Column {
        id: column

        width: parent.width
        spacing: Theme.tightSpacing

        Label {
            width: parent.width
            text: root.label
            color: Theme.colors.secondaryText
            Accessible.ignored: true
        }

        Item {
            width: parent.width
            height: button.height

            PushButton {
                id: button

                anchors.left: parent.left
                width: Math.min(implicitWidth, parent.width)
                focus: true
                symbol: "chevron.down"
                text: root.names[root.current] ?? ""
                Accessible.name: root.label + ": " + button.text
                onClicked: root.isOpen ? root.close() : root.open()
            }
        }

        ListView {
            id: list

            width: parent.width
            height: Math.min(list.count, 6) * Theme.controlHeight
            visible: false
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            model: root.names
            activeFocusOnTab: true
            Accessible.role: Accessible.List
            Accessible.name: root.label
            Keys.onReturnPressed: root.choose(list.currentIndex)
            Keys.onEnterPressed: root.choose(list.currentIndex)
            Keys.onSpacePressed: root.choose(list.currentIndex)
            Keys.onEscapePressed: root.close()
            Keys.onPressed: event => root.type(event)

            FocusFrame {
                anchors.fill: parent
                z: -1
                framed: list
            }

            delegate: ChoiceLine {
                id: choice

                width: list.width
                onChosen: root.choose(choice.index)
            }

            ScrollBar {
                flickable: list
            }
        }
    }
}
