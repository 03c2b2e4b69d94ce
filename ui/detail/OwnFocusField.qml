// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// A line for the length of a focus, which Enter starts.
Item {
    id: root

    required property OwnFocusAdapter adapter
    readonly property alias isWritten: editor.activeFocus
    readonly property int inset: 2

    // To what stands below.
    signal leftDownwards

    function takeFocus() {
        editor.forceActiveFocus(Qt.ShortcutFocusReason);
    }

    function lookUp() {
        if (editor.activeFocus)
            root.adapter.renewOffers();
    }

    // What is typed has been used then, if it could be read.
    function start() {
        const isRead = root.adapter.understood.length > 0;
        root.adapter.startTyped();
        if (isRead)
            editor.clear();
    }

    function clearOrLeave(event) {
        event.accepted = editor.length > 0;
        editor.clear();
    }

    function openMenu(x: real, y: real) {
        (menu.part() as EditorMenu).popup(root, x, y);
    }

    function openMenuOnShift(event) {
        event.accepted = event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier;
        if (event.accepted)
            root.openMenu(0, root.height);
    }

    implicitHeight: Math.max(Theme.controlHeight, editor.height + 2 * root.inset)
    // Of another task.
    onAdapterChanged: editor.clear()

    FocusFrame {
        anchors.fill: parent
        framed: editor
        radius: Theme.controlRadius
        usualBorder: root.enabled ? Theme.colors.fieldBorder : Theme.colors.separator
    }

    Label {
        anchors.fill: editor
        leftPadding: editor.padding
        rightPadding: editor.padding
        verticalAlignment: Text.AlignVCenter
        visible: editor.length === 0
        text: qsTr("Own length")
        elide: Text.ElideRight
        color: root.enabled ? Theme.colors.secondaryText : Theme.colors.disabledText
        Accessible.ignored: true
    }

    SizeExportingTextView {
        id: editor

        x: root.inset
        anchors.verticalCenter: parent.verticalCenter
        width: root.width - 2 * root.inset
        height: editor.textSize.height
        activeFocusOnTab: true
        Accessible.name: qsTr("Own length")
        Accessible.description: root.adapter.understood + root.adapter.fault
        Accessible.multiLine: false
        onActiveFocusChanged: root.lookUp()
        onTextChanged: root.adapter.type(editor.text)
        Keys.onReturnPressed: root.start()
        Keys.onEnterPressed: root.start()
        Keys.onDownPressed: root.leftDownwards()
        Keys.onEscapePressed: event => root.clearOrLeave(event)
        Keys.onMenuPressed: root.openMenu(0, root.height)
        Keys.onPressed: event => root.openMenuOnShift(event)

        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.RightButton
            onPressed: mouse => root.openMenu(mouse.x, mouse.y)
        }
    }

    LazyPart {
        id: menu

        file: Qt.resolvedUrl("EditorMenu.qml")
        given: ({
                editor: editor
            })
    }
}
