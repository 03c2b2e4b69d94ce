// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Hearthmark.Controls

T.MenuItem {
    id: root

    property string shortcutText
    // Takes something away.
    property bool isDestructive: false
    readonly property color textColor: root.isDestructive ? Theme.colors.danger : Theme.colors.text

    function press() {
        if (root.enabled)
            root.triggered();
    }

    implicitWidth: Theme.menuWidth
    implicitHeight: Math.max(Theme.controlHeight, implicitContentHeight + topPadding + bottomPadding)
    horizontalPadding: 10
    verticalPadding: Theme.tightSpacing

    Accessible.role: Accessible.MenuItem
    Accessible.name: root.text
    Accessible.description: root.shortcutText
    Accessible.onPressAction: root.press()

    contentItem: MenuItemLine {
        text: root.text
        shortcutText: root.shortcutText
        textColor: root.enabled ? root.textColor : Theme.colors.disabledText
        shortcutColor: root.enabled ? Theme.colors.secondaryText : Theme.colors.disabledText
        isMarked: root.highlighted
    }

    background: Box {
        radius: Theme.controlRadius - 1
        color: root.highlighted || root.down ? Theme.colors.menuHighlight : "transparent"
        borderWidth: root.highlighted ? Theme.focusWidth : 0
        borderColor: Theme.colors.focus
    }
}
