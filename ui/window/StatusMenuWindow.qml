// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import QtQml
import Hearthmark.Controls

// The menu of a status item that no panel shows one for. Hides when a line is chosen and when the
// keyboard goes elsewhere.
Window {
    id: root

    required property bool isDark
    // Of each line its text, empty for one that separates, and whether it can be chosen.
    required property list<string> texts
    required property list<bool> enabledLines
    // The one that was chosen; none before.
    property int chosen: -1

    function choose(index: int) {
        root.chosen = index;
        root.hide();
    }

    function insert(index: int, item: ContextMenuItem) {
        menu.insertItem(index, item);
        menu.width = Math.max(menu.width, item.implicitContentWidth + item.leftPadding + item.rightPadding + menu.leftPadding + menu.rightPadding);
    }

    // A press elsewhere on the screen.
    function hideWithoutFocus() {
        if (!root.active)
            root.hide();
    }

    title: qsTr("Menu of Hearthmark")
    flags: Qt.Tool | Qt.FramelessWindowHint | Qt.WindowStaysOnTopHint
    width: menu.width
    height: menu.implicitHeight
    color: Theme.colors.content
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    onActiveChanged: root.hideWithoutFocus()
    Component.onCompleted: menu.open()

    Binding {
        target: Theme
        property: "isDark"
        value: root.isDark
    }

    ContextMenu {
        id: menu

        margins: 0
        width: Theme.menuWidth
        onClosed: root.hide()
    }

    Instantiator {
        model: root.texts.length
        onObjectAdded: (index, item) => root.insert(index, item)

        ContextMenuItem {
            id: line

            required property int index
            readonly property bool isSeparator: line.text === ""

            text: root.texts[line.index]
            enabled: root.enabledLines[line.index]
            height: line.isSeparator ? Theme.spacing : line.implicitHeight
            Accessible.ignored: line.isSeparator
            onTriggered: root.choose(line.index)

            Box {
                anchors.verticalCenter: parent.verticalCenter
                width: parent.width
                height: 1
                visible: line.isSeparator
                color: Theme.colors.separator
            }
        }
    }
}
