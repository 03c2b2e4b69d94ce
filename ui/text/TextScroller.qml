// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// A long text as a list of its lines, of which only those that are visible are laid out. The keyboard
// scrolls it, the mouse marks a part of it.
FreshListView {
    id: root

    property TextLinesModel lines

    property string fontFamily: Theme.fixedFamily
    // Shown after each line and never copied: a line of data without letters runs from left to right.
    property string lineEnd: "\u200e"
    readonly property real lineStep: Theme.controlHeight
    readonly property real pageStep: root.height - root.lineStep

    function showBeginning() {
        root.positionViewAtBeginning();
        root.scrollBy(-root.topMargin);
    }

    function showEnd() {
        root.positionViewAtEnd();
        root.scrollBy(root.bottomMargin);
    }

    // The line at a place in the content, or the last one below all.
    function rowAt(y: real): int {
        const row = root.indexAt(root.width / 2, Math.max(root.originY, y));
        return row < 0 ? root.count - 1 : row;
    }

    // The character at a place in the content.
    function columnAt(row: int, x: real, y: real): int {
        const line = root.itemAtIndex(row) as ReadOnlyText;
        return line ? line.positionAt(x - line.x, y - line.y) : 0;
    }

    function press(mouse) {
        const row = root.rowAt(root.contentY + mouse.y);
        const column = root.columnAt(row, mouse.x, root.contentY + mouse.y);
        root.forceActiveFocus(Qt.MouseFocusReason);
        if (mouse.modifiers & Qt.ShiftModifier)
            root.lines.moveSelection(row, column);
        else
            root.lines.beginSelection(row, column);
    }

    function drag(mouse) {
        root.scrollBy(Math.min(mouse.y, 0) + Math.max(mouse.y - root.height, 0));
        const y = root.contentY + Math.max(0, Math.min(mouse.y, root.height - 1));
        const row = root.rowAt(y);
        root.lines.moveSelection(row, root.columnAt(row, mouse.x, y));
    }

    function pressKey(event) {
        event.accepted = false;
        if (event.modifiers === Qt.ControlModifier && event.key === Qt.Key_A) {
            root.lines.selectAll();
            event.accepted = true;
        } else if (event.modifiers === Qt.ControlModifier && event.key === Qt.Key_C) {
            event.accepted = root.lines.copySelection();
        } else {
            root.scrollByKey(event);
        }
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
    onLinesChanged: root.changeModel(root.lines, lineOfText)
    Keys.onPressed: event => root.pressKey(event)

    ScrollBar {
        flickable: root
    }

    Component {
        id: lineOfText

        ReadOnlyText {
            id: label

            required property string line
            required property int selectedFrom
            required property int selectedTo

            property bool isMarking: false

            // The toolkit tells a change of the text, too, while it selects and has not yet.
            function markSelection() {
                if (label.isMarking || label.selectionStart === label.selectedFrom && label.selectionEnd === label.selectedTo)
                    return;
                label.isMarking = true;
                label.select(label.selectedFrom, label.selectedTo);
                label.isMarking = false;
            }

            width: root.width
            leftPadding: Theme.spacing
            rightPadding: Theme.spacing
            enabled: false // mouse and keys are for the whole, not for a line
            text: label.line + root.lineEnd
            Accessible.name: label.line
            font.family: root.fontFamily
            onSelectedFromChanged: label.markSelection()
            onSelectedToChanged: label.markSelection()
            onTextChanged: label.markSelection()
        }
    }

    MouseArea {
        parent: root
        anchors.fill: parent
        anchors.rightMargin: Theme.spacing
        preventStealing: true
        cursorShape: Qt.IBeamCursor
        onPressed: mouse => root.press(mouse)
        onPositionChanged: mouse => root.drag(mouse)
    }
}
