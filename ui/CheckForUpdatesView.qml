// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The menu item that looks for a newer version. Where this build cannot, it says why.
ContextMenuItem {
    id: root

    required property UpdateAdapter updates
    readonly property bool hasReason: root.updates.unavailableReason.length > 0

    text: qsTr("Check for Updates…")
    enabled: root.updates.canCheck
    bottomPadding: root.verticalPadding + (root.hasReason ? reason.implicitHeight : 0)
    Accessible.description: root.updates.unavailableReason
    onTriggered: root.updates.check()

    Label {
        id: reason

        anchors.bottom: parent.bottom
        anchors.bottomMargin: root.verticalPadding
        x: root.leftPadding
        width: root.availableWidth
        visible: root.hasReason
        text: root.updates.unavailableReason
        color: Theme.colors.secondaryText
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
}
