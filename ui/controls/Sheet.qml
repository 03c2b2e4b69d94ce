// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

// A modal sheet over the window. Only its own controls and the Escape key close it: a click outside
// must not lose a half-typed text. Its title is what assistive programs call it.
T.Dialog {
    id: root

    property real preferredWidth: Theme.sheetWidth
    readonly property real largestHeight: (parent?.height ?? 0) - 2 * Theme.pageMargin
    readonly property Transition fade: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.motionDuration
        }
    }

    readonly property Item focusedItem: (root.parent as Item)?.Window.activeFocusItem ?? null
    // Once all that takes the keyboard has taken it.
    readonly property Timer keeping: Timer {
        interval: 0
        onTriggered: root.keepFocus()
    }

    // What closes, or is used, behind it must not keep the keyboard: no key would close the sheet then.
    function keepFocus() {
        let item = root.focusedItem;
        while (item && item !== root.parent)
            item = item.parent;
        if (root.opened && root.focusedItem && !item)
            root.forceActiveFocus(Qt.PopupFocusReason);
    }

    onFocusedItemChanged: root.keeping.restart()
    onOpened: root.keeping.restart()

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(root.preferredWidth, (parent?.width ?? 0) - 2 * Theme.pageMargin)
    height: Math.min(implicitHeight, root.largestHeight)
    implicitHeight: contentHeight + topPadding + bottomPadding
    padding: 20
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape

    background: Rectangle {
        radius: Theme.radius + 4
        color: Theme.colors.content
        border.width: 1
        border.color: Theme.colors.separator
    }

    // A popup does not ask whether its transition is enabled.
    enter: Theme.isStill ? null : root.fade

    T.Overlay.modal: Rectangle {
        color: Theme.colors.shade
    }
}
