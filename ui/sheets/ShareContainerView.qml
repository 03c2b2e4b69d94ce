// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// Shows one task as text, in one tab for each format. Empty until the texts are made.
CopySheet {
    id: root

    property ShareContainerAdapter adapter
    property alias selectedTab: tabs.currentIndex

    // Each presentation begins with the first tab.
    function beginAnew() {
        root.selectedTab = ShareContainerAdapter.Json;
    }

    title: qsTr("Share")
    heading: ""
    contentItem.visible: root.adapter?.loaded ?? false
    onAdapterChanged: root.adapter?.load()
    onVisibleChanged: root.beginAnew()
    onCopied: root.adapter.copy(root.selectedTab)

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

    FocusFrame {
        width: parent.width
        height: root.room - y
        framed: jsonText.visible ? jsonText : csvText

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
}
