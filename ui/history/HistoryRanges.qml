// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// Which range the history shows, and the ways to others.
Column {
    id: root

    required property HistoryAdapter adapter
    required property FileTransferAdapter transfer
    readonly property bool isNarrow: root.width < 1.1 * Theme.chartTextsWidth

    signal closeRequested

    // Tabs come one by one, and the first of them is current at first.
    function chooseUnit() {
        if (tabs.isComplete)
            root.adapter?.setUnit(tabs.currentIndex);
    }

    spacing: Theme.spacing

    Item {
        width: parent.width
        height: Math.max(title.height, Theme.controlHeight)

        SymbolButton {
            id: back

            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            symbol: back.LayoutMirroring.enabled ? "chevron.right" : "chevron.left"
            text: qsTr("Back")
            enabled: root.adapter?.canGoBack ?? false
            onClicked: root.adapter.goBack()
        }

        SymbolButton {
            id: forward

            anchors.left: back.right
            anchors.verticalCenter: parent.verticalCenter
            symbol: forward.LayoutMirroring.enabled ? "chevron.left" : "chevron.right"
            text: qsTr("Forward")
            enabled: root.adapter?.canGoForward ?? false
            onClicked: root.adapter.goForward()
        }

        ElidedLabel {
            id: title

            anchors.left: forward.right
            anchors.right: close.left
            anchors.leftMargin: Theme.spacing
            anchors.verticalCenter: parent.verticalCenter
            text: root.adapter?.title ?? ""
            font.pointSize: root.isNarrow ? Theme.bodySize : Theme.title2Size
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading
        }

        SymbolButton {
            id: close

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            symbol: "xmark"
            text: qsTr("Leave the history")
            onClicked: root.closeRequested()
        }
    }

    // A second line where there is no room beside the tabs.
    Flow {
        width: parent.width
        spacing: Theme.spacing

        TabBar {
            id: tabs

            // What their texts leave of the width, as far as they need it.
            readonly property real tabPadding: Math.max(Theme.tightSpacing, Math.min(Theme.wideSpacing, Math.floor((root.width - 18 * Theme.bodySize) / (2 * tabs.count))))
            property bool isComplete: false

            currentIndex: root.adapter?.unit ?? 0
            Accessible.name: qsTr("Range")
            onCurrentIndexChanged: root.chooseUnit()
            Component.onCompleted: {
                tabs.setCurrentIndex(root.adapter.unit);
                tabs.isComplete = true;
            }

            TabButton {
                symbol: ""
                text: qsTr("Day")
                horizontalPadding: tabs.tabPadding
            }

            TabButton {
                symbol: ""
                text: qsTr("Week")
                horizontalPadding: tabs.tabPadding
            }

            TabButton {
                symbol: ""
                text: qsTr("Month")
                horizontalPadding: tabs.tabPadding
            }

            TabButton {
                symbol: ""
                text: qsTr("Year")
                horizontalPadding: tabs.tabPadding
            }

            TabButton {
                symbol: ""
                text: qsTr("All")
                horizontalPadding: tabs.tabPadding
            }
        }

        PushButton {
            height: tabs.height
            text: qsTr("Today")
            enabled: !(root.adapter?.holdsToday ?? true)
            onClicked: root.adapter.goToToday()
        }

        HistoryExport {
            height: tabs.height
            history: root.adapter
            transfer: root.transfer
        }
    }
}
