// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// All that a program shows that cannot begin.
Window {
    id: root

    required property string message
    required property bool isDark

    title: "Hearthmark"
    width: Theme.sheetWidth
    height: content.implicitHeight + 2 * Theme.pageMargin
    color: Theme.colors.window
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    Binding {
        target: Theme
        property: "isDark"
        value: root.isDark
    }

    Shortcut {
        sequences: ["Escape", "Return", "Enter", "Ctrl+Q", "Ctrl+W"]
        onActivated: root.close()
    }

    Column {
        id: content

        anchors.fill: parent
        anchors.margins: Theme.pageMargin
        spacing: Theme.wideSpacing

        Paragraph {
            text: root.message
            Accessible.role: Accessible.AlertMessage
        }

        PushButton {
            anchors.right: parent.right
            focus: true
            look: PushButton.Primary
            text: qsTr("Close")
            onClicked: root.close()
        }
    }
}
