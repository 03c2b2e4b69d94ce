// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// Corrects an interval, or adds a past one. Only what was changed is looked at, while it is typed.
Sheet {
    id: root

    property CorrectIntervalAdapter adapter
    readonly property bool canSave: root.adapter?.canSave ?? false

    function begin() {
        if (!root.adapter)
            return;
        start.text = root.adapter.start;
        timeSpent.text = root.adapter.timeSpent;
        length.text = root.adapter.length;
        start.focus = true;
    }

    function step(steps: int) {
        start.replaceText(root.adapter.steppedStart(start.cursorPosition, steps));
        root.adapter.start = start.text;
    }

    function save() {
        if (root.adapter.save())
            root.close();
    }

    function saveOnEnter(event) {
        event.accepted = [Qt.Key_Return, Qt.Key_Enter].includes(event.key);
        if (event.accepted && root.canSave)
            root.save();
    }

    title: root.adapter?.isNew ? qsTr("Add an Interval") : qsTr("Correct the Interval")
    onAdapterChanged: root.begin()
    onKeyPressed: event => root.saveOnEnter(event)

    ChoiceField {
        width: parent.width
        label: qsTr("Task")
        names: root.adapter?.taskNames ?? []
        current: root.adapter?.task ?? -1
        find: (index, text) => root.adapter.taskAfter(index, text)
        onChosen: index => root.adapter.task = index
    }

    LineField {
        id: start

        width: parent.width
        focus: true
        label: qsTr("Start")
        fault: root.adapter?.startFault ?? ""
        onEdited: root.adapter.start = start.text
        onStepped: steps => root.step(steps)
    }

    LineField {
        id: timeSpent

        width: parent.width
        label: qsTr("Time spent")
        fault: root.adapter?.timeSpentFault ?? ""
        onEdited: root.adapter.timeSpent = timeSpent.text
    }

    LineField {
        id: length

        width: parent.width
        label: qsTr("Length")
        placeholder: qsTr("No limit")
        fault: root.adapter?.lengthFault ?? ""
        onEdited: root.adapter.length = length.text
    }

    Paragraph {
        visible: text !== ""
        text: root.adapter?.remark ?? ""
        color: Theme.colors.secondaryText
    }

    buttons: [
        PushButton {
            text: qsTr("Cancel")
            onClicked: root.close()
        },
        PushButton {
            enabled: root.canSave
            look: PushButton.Primary
            text: qsTr("Save")
            onClicked: root.save()
        }
    ]
}
