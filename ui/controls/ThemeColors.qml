// SPDX-License-Identifier: MIT
import QtQuick

// The colours of one appearance. Texts stand at 4.5:1 or better on every ground they are used on,
// outlines of fields and focus rings at 3:1.
QtObject {
    required property color window
    required property color sidebar
    required property color content
    required property color separator
    required property color shade

    required property color text
    required property color secondaryText
    required property color disabledText

    required property color selectedContent
    required property color selectedText
    required property color accent
    required property color accentHovered
    required property color accentPressed
    required property color accentText
    required property color danger
    required property color focus

    required property color button
    required property color buttonHovered
    required property color buttonPressed
    required property color buttonBorder
    required property color fieldBorder
    required property color rowHovered
    required property color menuHighlight
    required property color scrollBar
    required property color scrollBarPressed

    // Of a bar that fills, on a common ground and on selected content.
    required property color track
    required property color selectedTrack
}
