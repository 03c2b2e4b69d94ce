// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Hearthmark.Controls

// One tab, with a symbol before its text.
T.TabButton {
    id: root

    required property string symbol

    function select() {
        root.checked = true;
    }

    implicitWidth: Math.ceil(implicitContentWidth) + leftPadding + rightPadding
    implicitHeight: Theme.controlHeight
    horizontalPadding: Theme.wideSpacing
    spacing: Theme.spacing
    hoverEnabled: true
    // Not while it has the keyboard, which moves to the one that gets checked.
    focusPolicy: root.checked || root.activeFocus ? Qt.TabFocus : Qt.NoFocus

    Accessible.role: Accessible.PageTab
    Accessible.name: root.text
    Accessible.selectable: true
    Accessible.selected: root.checked
    Accessible.onPressAction: root.select()

    contentItem: SymbolLabel {
        symbol: root.symbol
        text: root.text
        color: Theme.colors.text
        spacing: root.spacing
    }

    background: Box {
        radius: Theme.controlRadius
        color: root.checked ? Theme.colors.button : root.hovered ? Theme.colors.separator : "transparent"
        borderWidth: root.checked ? 1 : 0
        borderColor: Theme.colors.buttonBorder

        FocusRing {
            visible: root.activeFocus
        }
    }
}
