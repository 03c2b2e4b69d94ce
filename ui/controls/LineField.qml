// SPDX-License-Identifier: MIT
import QtQuick

// A field of one line below its name, with what is to be said against its text below it.
FocusScope {
    id: root

    required property string label
    property alias text: input.text
    property alias cursorPosition: input.cursorPosition
    property string fault
    // Shown where it is empty.
    property string placeholder

    signal edited
    // An arrow key was pressed, upwards by 1 or downwards by -1.
    signal stepped(steps: int)

    // As fields do, so that what is typed takes the place of what was there.
    function markAll() {
        if (input.activeFocus)
            input.selectAll();
    }

    // A step keeps the cursor in its part of the text.
    function replaceText(text: string) {
        const position = input.cursorPosition;
        input.text = text;
        input.cursorPosition = Math.min(position, text.length);
    }

    implicitHeight: column.height

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
            height: Math.max(Theme.controlHeight, input.implicitHeight)

            FocusFrame {
                anchors.fill: parent
                framed: input
                usualBorder: Theme.colors.fieldBorder
            }

            TextInput {
                id: input

                anchors.fill: parent
                leftPadding: Theme.spacing
                rightPadding: Theme.spacing
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
                onTextEdited: root.edited()
                onActiveFocusChanged: root.markAll()
                Keys.onUpPressed: root.stepped(1)
                Keys.onDownPressed: root.stepped(-1)
                Accessible.role: Accessible.EditableText
                Accessible.name: root.label
                Accessible.description: root.fault || root.placeholder

                HoverHandler {
                    cursorShape: Qt.IBeamCursor
                }
            }

            Label {
                anchors.fill: parent
                leftPadding: Theme.spacing
                rightPadding: Theme.spacing
                verticalAlignment: Text.AlignVCenter
                visible: input.text === ""
                text: root.placeholder
                color: Theme.colors.secondaryText
                Accessible.ignored: true
            }
        }

        Paragraph {
            visible: root.fault !== ""
            text: root.fault
            color: Theme.colors.danger
            Accessible.role: Accessible.AlertMessage
        }
    }
}
