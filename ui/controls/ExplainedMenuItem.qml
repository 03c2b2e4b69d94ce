// SPDX-License-Identifier: MIT
import QtQuick

// A menu item that says under its text why it cannot be used, or what came of using it.
ContextMenuItem {
    id: root

    property string reason
    readonly property bool hasReason: root.reason.length > 0

    // Its text is as far from the row above as theirs.
    verticalPadding: Math.max(Theme.tightSpacing, Math.floor((Theme.controlHeight - root.implicitContentHeight) / 2))
    bottomPadding: root.verticalPadding + (root.hasReason ? label.implicitHeight : 0)
    Accessible.description: root.reason

    Label {
        id: label

        anchors.bottom: parent.bottom
        anchors.bottomMargin: root.verticalPadding
        x: root.leftPadding
        width: root.availableWidth
        visible: root.hasReason
        text: root.reason
        color: Theme.colors.secondaryText
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
}
