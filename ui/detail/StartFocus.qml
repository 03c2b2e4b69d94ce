// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The buttons of the two usual lengths, the field for any other, and below it what it understands and which
// lengths it offers.
Column {
    id: root

    required property TaskDetailAdapter adapter
    readonly property alias isWritten: field.isWritten

    function startOwnFocus() {
        if (root.adapter.canStartFocus && !root.adapter.ownFocus.startNewest())
            field.takeFocus();
    }

    spacing: Theme.spacing

    Flow {
        width: parent.width
        spacing: Theme.spacing

        PushButton {
            visible: root.adapter.shortFocusText.length > 0
            enabled: root.adapter.canStartFocus
            look: PushButton.Primary
            text: root.adapter.shortFocusText
            onClicked: root.adapter.startShortFocus()
        }

        PushButton {
            visible: root.adapter.longFocusText.length > 0
            enabled: root.adapter.canStartFocus
            look: PushButton.Primary
            text: root.adapter.longFocusText
            onClicked: root.adapter.startLongFocus()
        }

        OwnFocusField {
            id: field

            width: Math.min(Theme.lengthFieldWidth, root.width)
            enabled: root.adapter.canStartFocus
            adapter: root.adapter.ownFocus
            onLeftDownwards: offers.enter()
        }
    }

    Label {
        width: parent.width
        visible: text.length > 0
        text: root.adapter.ownFocus.understood + root.adapter.ownFocus.fault
        color: root.adapter.ownFocus.fault.length > 0 ? Theme.colors.danger : Theme.colors.secondaryText
        wrapMode: Text.Wrap
    }

    // It stands while the keyboard is in the field or here.
    FocusScope {
        id: offers

        function enter() {
            if (offers.visible)
                lengths.itemAt(0).forceActiveFocus(Qt.TabFocusReason);
        }

        width: parent.width
        height: row.height
        visible: lengths.count > 0 && (field.isWritten || offers.activeFocus)
        enabled: root.adapter.canStartFocus
        Accessible.role: Accessible.Grouping
        Accessible.name: qsTr("Lengths used before")
        Keys.onUpPressed: field.takeFocus()

        Flow {
            id: row

            width: parent.width
            spacing: Theme.spacing

            Repeater {
                id: lengths

                model: root.adapter.ownFocus.offers

                PushButton {
                    id: offer

                    required property int index
                    required property string modelData

                    text: offer.modelData
                    onClicked: root.adapter.ownFocus.startOffered(offer.index)
                }
            }
        }
    }
}
