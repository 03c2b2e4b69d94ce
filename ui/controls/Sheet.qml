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
