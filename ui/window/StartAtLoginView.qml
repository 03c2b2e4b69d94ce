// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The menu item that has the desktop start the program at login. The template's own check mark would
// change without asking whether it worked.
ExplainedMenuItem {
    id: root

    required property StartAtLoginAdapter startAtLogin
    // For assistive programs, too.
    readonly property bool isChecked: root.startAtLogin.isOn

    text: qsTr("Start at Login")
    enabled: root.startAtLogin.canChange
    reason: root.startAtLogin.reason
    Accessible.checked: root.isChecked
    onTriggered: root.startAtLogin.toggle()

    Symbol {
        anchors.right: parent.right
        anchors.rightMargin: root.rightPadding
        anchors.verticalCenter: root.contentItem.verticalCenter
        visible: root.isChecked
        name: "checkmark"
        color: root.enabled ? Theme.colors.text : Theme.colors.disabledText
    }
}
