// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// The header of a section of the task list.
Heading {
    topPadding: Theme.tightSpacing + 2 * Theme.spacing
    bottomPadding: Theme.tightSpacing
    leftPadding: Theme.wideSpacing
    rightPadding: Theme.wideSpacing
    maximumLineCount: 4
    elide: Text.ElideNone
}
