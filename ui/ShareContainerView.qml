// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The content of the share sheet: the task's two texts, one for each tab. Empty until they are made.
FocusScope {
    id: root

    property ShareContainerAdapter adapter
    property alias selectedTab: tabs.currentIndex

    signal closed

    function copy() {
        root.adapter.copy(root.selectedTab);
        root.closed();
    }

    function copyOnControl(event) {
        event.accepted = (root.adapter?.loaded ?? false) && event.key === Qt.Key_C && event.modifiers === Qt.ControlModifier;
        if (event.accepted)
            root.copy();
    }

    // Each presentation begins with the first tab.
    function reset() {
        root.selectedTab = ShareContainerAdapter.Json;
    }

    onVisibleChanged: root.reset()
    Keys.onPressed: event => root.copyOnControl(event)

    FocusScope {
        id: content

        anchors.fill: parent
        visible: root.adapter?.loaded ?? false
        focus: true

        TabBar {
            id: tabs

            anchors.horizontalCenter: parent.horizontalCenter
            Accessible.name: qsTr("Format")

            TabButton {
                symbol: "tray.and.arrow.down.fill"
                text: qsTr("JSON")
            }

            TabButton {
                symbol: "tray.and.arrow.down.fill"
                text: qsTr("CSV")
            }
        }

        Rectangle {
            anchors.top: tabs.bottom
            anchors.bottom: buttons.top
            anchors.topMargin: Theme.wideSpacing
            anchors.bottomMargin: Theme.wideSpacing
            width: parent.width
            radius: Theme.radius
            color: Theme.colors.window
            border.width: jsonText.activeFocus || csvText.activeFocus ? Theme.focusWidth : 1
            border.color: jsonText.activeFocus || csvText.activeFocus ? Theme.colors.focus : Theme.colors.separator

            TextScroller {
                id: jsonText

                anchors.fill: parent
                anchors.margins: Theme.focusWidth
                visible: root.selectedTab === ShareContainerAdapter.Json
                focus: visible
                lines: root.adapter?.jsonLines ?? null
                Accessible.name: qsTr("JSON")
            }

            TextScroller {
                id: csvText

                anchors.fill: parent
                anchors.margins: Theme.focusWidth
                visible: root.selectedTab === ShareContainerAdapter.Csv
                focus: visible
                lines: root.adapter?.csvLines ?? null
                Accessible.name: qsTr("CSV")
            }
        }

        Row {
            id: buttons

            anchors.right: parent.right
            anchors.bottom: parent.bottom
            spacing: Theme.spacing

            PushButton {
                text: qsTr("Close")
                onClicked: root.closed()
            }

            PushButton {
                look: PushButton.Primary
                symbol: "doc.on.doc"
                text: qsTr("Copy")
                onClicked: root.copy()
            }
        }
    }
}
