// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T

// A long text as a list of its lines, of which only those that are visible are laid out. The keyboard
// scrolls it.
ListView {
    id: root

    property string fontFamily: Theme.fixedFamily
    readonly property real lineStep: Theme.controlHeight
    readonly property real pageStep: root.height - root.lineStep

    function scrollBy(distance: real) {
        const bottom = root.originY + root.contentHeight + root.bottomMargin - root.height;
        root.contentY = Math.max(root.originY - root.topMargin, Math.min(root.contentY + distance, bottom));
    }

    function showBeginning() {
        root.positionViewAtBeginning();
        root.scrollBy(-root.topMargin);
    }

    function showEnd() {
        root.positionViewAtEnd();
        root.scrollBy(root.bottomMargin);
    }

    function scrollByKey(event) {
        const steps = new Map([[Qt.Key_Up, -root.lineStep], [Qt.Key_Down, root.lineStep], [Qt.Key_PageUp, -root.pageStep], [Qt.Key_PageDown, root.pageStep], [Qt.Key_Space, root.pageStep]]);
        event.accepted = true;
        if (event.key === Qt.Key_Home)
            root.showBeginning();
        else if (event.key === Qt.Key_End)
            root.showEnd();
        else if (steps.has(event.key))
            root.scrollBy(steps.get(event.key));
        else
            event.accepted = false;
    }

    clip: true
    activeFocusOnTab: true
    boundsBehavior: Flickable.StopAtBounds
    keyNavigationEnabled: false
    reuseItems: true
    topMargin: Theme.spacing
    bottomMargin: Theme.spacing
    Accessible.role: Accessible.List
    Keys.onPressed: event => root.scrollByKey(event)
    T.ScrollBar.vertical: ScrollBar {}

    delegate: Label {
        id: label

        required property string line

        x: Theme.spacing
        width: root.width - 2 * Theme.spacing
        text: label.line
        font.family: root.fontFamily
        wrapMode: Text.Wrap
    }
}
