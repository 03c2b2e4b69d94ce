// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// The box of a saved note.
Box {
    id: root

    required property DeletableRow row
    required property string noteText
    // It shows the beginning of a text that is too long.
    required property bool isCut
    required property string began
    // Of the editor that lies over it; 0 while there is none.
    required property real editorHeight
    readonly property bool isEdited: root.editorHeight > 0
    readonly property bool hasButton: root.isCut && !root.isEdited
    readonly property real lastLine: Math.max(root.hasButton ? button.height : 0, date.height)

    // The whole text is to be copied, of which this may show a part.
    signal copied
    // The keyboard has come to the button below the text.
    signal buttonReached
    signal wholeRequested

    function focusButton() {
        button.forceActiveFocus(Qt.TabFocusReason);
    }

    function reportFocus() {
        if (button.activeFocus)
            root.buttonReached();
    }

    implicitHeight: root.isEdited ? root.editorHeight : body.height + 2 * Theme.spacing + (root.lastLine > 0 ? root.lastLine + Theme.tightSpacing : 0)
    radius: Theme.radius
    color: root.isEdited ? "transparent" : Theme.colors.window

    HoverHandler {
        id: pointer
    }

    FocusRing {
        visible: root.row.focusVisible && !root.isEdited
        controlRadius: Theme.radius
    }

    MarkableText {
        id: body

        anchors.left: parent.left
        anchors.leftMargin: Theme.spacing
        y: Theme.spacing
        width: root.width - 2 * Theme.spacing - editButton.width
        visible: !root.isEdited
        text: root.noteText
        row: root.row
        onAllCopied: root.copied()
    }

    EditButton {
        id: editButton

        anchors.right: parent.right
        y: Math.min(0, (body.height + 2 * Theme.spacing - editButton.height) / 2)
        visible: !root.isEdited
        isOffered: pointer.hovered || root.row.focusVisible
        activeFocusOnTab: false // the row has a key for it
        text: qsTr("Edit note")
        onClicked: root.row.editRequested()
    }

    PushButton {
        id: button

        anchors.left: parent.left
        anchors.bottom: parent.bottom
        anchors.margins: Theme.spacing
        visible: root.hasButton
        activeFocusOnTab: false // the row hands the focus on to it
        text: qsTr("Show all")
        onClicked: root.wholeRequested()
        onActiveFocusChanged: root.reportFocus()
        // That key is for the row, when it is the row that is marked.
        Keys.onDeletePressed: event => event.accepted = true
    }

    Label {
        id: date

        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: Theme.spacing
        width: Math.min(implicitWidth, root.width - 2 * Theme.spacing - (root.isCut ? button.width + Theme.spacing : 0))
        height: root.began.length > 0 ? implicitHeight : 0
        visible: !root.isEdited
        text: root.began
        color: Theme.colors.secondaryText
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignRight
        Accessible.ignored: true
    }
}
