// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The menu item that looks for a newer version. Where this build cannot, it says why.
ExplainedMenuItem {
    id: root

    required property UpdateAdapter updates

    text: qsTr("Check for Updates…")
    enabled: root.updates.canCheckForUpdates
    reason: root.updates.unavailableReason
    onTriggered: root.updates.check()
}
