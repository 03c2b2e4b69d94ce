// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Hearthmark.Controls

// While it is open a press elsewhere closes it and does nothing else. No key would close it once the
// keyboard is elsewhere.
T.Menu {
    id: root

    // To the next item that can be used and begins like that, from one on and past the ends.
    function walk(first: int, step: int, start: string): bool {
        for (let i = 0; i < root.count; ++i) {
            const index = (first + i * step + root.count) % root.count;
            const item = root.itemAt(index) as ContextMenuItem;
            if (!item.enabled || !item.text.toLowerCase().startsWith(start))
                continue;
            root.currentIndex = index;
            return true;
        }
        return false;
    }

    function pressKey(event) {
        event.accepted = true;
        if (event.key === Qt.Key_Up)
            root.walk(Math.max(0, root.currentIndex) - 1, -1, "");
        else if (event.key === Qt.Key_Down)
            root.walk(root.currentIndex + 1, 1, "");
        else if (event.key === Qt.Key_Home)
            root.walk(0, 1, "");
        else if (event.key === Qt.Key_End)
            root.walk(-1, -1, "");
        else
            event.accepted = event.text.length > 0 && root.walk(root.currentIndex + 1, 1, event.text.toLowerCase());
    }

    function closeWithoutFocus() {
        if (!root.activeFocus)
            root.close();
    }

    onActiveFocusChanged: root.closeWithoutFocus()
    implicitWidth: Math.max(implicitBackgroundWidth, contentWidth + leftPadding + rightPadding)
    implicitHeight: contentHeight + topPadding + bottomPadding
    margins: Theme.tightSpacing
    padding: Theme.tightSpacing
    modal: true
    dim: false
    focus: true

    delegate: ContextMenuItem {}

    contentItem: ListView { // what is higher than the window scrolls
        implicitHeight: contentHeight
        model: root.contentModel
        currentIndex: root.currentIndex
        interactive: contentHeight > height
        boundsBehavior: Flickable.StopAtBounds
        clip: interactive
        onCurrentIndexChanged: positionViewAtIndex(currentIndex, ListView.Contain)
        Keys.onPressed: event => root.pressKey(event)

        ScrollBar {
            flickable: root.contentItem as Flickable
        }
    }

    background: Item {
        implicitWidth: Theme.menuWidth

        Box {
            anchors.fill: parent
            anchors.topMargin: 1
            anchors.bottomMargin: -2
            radius: Theme.radius
            color: Theme.colors.separator
        }

        Box {
            anchors.fill: parent
            radius: Theme.radius
            color: Theme.colors.content
            borderWidth: 1
            borderColor: Theme.colors.buttonBorder
        }
    }
}
