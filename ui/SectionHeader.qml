// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// The header of a section of the task list.
Label {
    topPadding: Theme.tightSpacing + 2 * Theme.spacing
    bottomPadding: Theme.tightSpacing
    leftPadding: Theme.wideSpacing
    rightPadding: Theme.wideSpacing
    font.pointSize: Theme.title2Size
    font.weight: Font.DemiBold
    wrapMode: Text.Wrap
    maximumLineCount: 4
    Accessible.role: Accessible.Heading
}
