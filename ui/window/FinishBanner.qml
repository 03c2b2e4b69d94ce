// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// Says across the window that an interval has finished, where the desktop could not. Stays until it
// is answered.
FocusScope {
    id: root

    required property UnseenFinishesAdapter finishes

    height: root.visible ? content.implicitHeight + 2 * Theme.spacing : 0
    visible: root.finishes.presented
    Accessible.role: Accessible.Notification
    Accessible.name: root.finishes.text

    Box {
        anchors.fill: parent
        color: Theme.colors.selectedContent
    }

    Row {
        id: content

        anchors.left: parent.left
        anchors.leftMargin: Theme.wideSpacing
        y: Theme.spacing
        width: parent.width - Theme.wideSpacing - Theme.spacing
        spacing: Theme.wideSpacing

        ElidedLabel {
            width: parent.width - buttons.width - parent.spacing
            anchors.verticalCenter: parent.verticalCenter
            text: root.finishes.text
            color: Theme.colors.selectedText
            font.weight: Font.DemiBold
            isMarked: root.activeFocus
        }

        Row {
            id: buttons

            spacing: Theme.spacing

            PushButton {
                visible: root.finishes.canShow
                ringColor: Theme.colors.selectedText
                text: qsTr("Show")
                onClicked: root.finishes.showTask()
            }

            PushButton {
                ringColor: Theme.colors.selectedText
                text: qsTr("Dismiss")
                onClicked: root.finishes.dismiss()
            }
        }
    }
}
