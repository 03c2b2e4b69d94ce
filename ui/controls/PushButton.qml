// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// A button with a text and, where it has one, a symbol before it.
BasicButton {
    id: root

    enum Look { Standard, Primary }

    property int look: PushButton.Standard
    property string symbol
    property color ringColor: Theme.colors.focus
    readonly property bool isPrimary: root.look === PushButton.Primary && root.enabled
    readonly property color textColor: {
        if (!root.enabled)
            return Theme.colors.disabledText;
        return root.isPrimary ? Theme.colors.accentText : Theme.colors.text;
    }

    readonly property int horizontalPadding: 14
    readonly property int verticalPadding: 5

    implicitWidth: Math.ceil(content.implicitWidth) + 2 * root.horizontalPadding
    implicitHeight: Math.max(Theme.controlHeight, content.implicitHeight + 2 * root.verticalPadding)

    Box {
        anchors.fill: parent
        radius: Theme.controlRadius
        borderWidth: root.isPrimary ? 0 : 1
        borderColor: root.enabled ? Theme.colors.buttonBorder : Theme.colors.separator
        color: {
            if (!root.enabled)
                return "transparent";
            if (root.isPrimary)
                return root.down ? Theme.colors.accentPressed : root.hovered ? Theme.colors.accentHovered : Theme.colors.accent;
            if (root.down)
                return Theme.colors.buttonPressed;
            return root.hovered ? Theme.colors.buttonHovered : Theme.colors.button;
        }

        FocusRing {
            visible: root.activeFocus
            borderColor: root.ringColor
        }
    }

    SymbolLabel {
        id: content

        anchors.fill: parent
        symbol: root.symbol
        text: root.text
        color: root.textColor
        spacing: Theme.spacing
    }
}
