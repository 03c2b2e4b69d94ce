// SPDX-License-Identifier: MIT

// A bar of the history's chart. That of now grows each second.
FocusBar {
    id: root

    required property int index
    required property bool isCurrent

    ticks: root.isCurrent
}
