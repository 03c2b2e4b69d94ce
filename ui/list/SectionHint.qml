// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// What an empty section of the task list shows.
Label {
    topPadding: Theme.tightSpacing + Theme.spacing
    bottomPadding: Theme.tightSpacing + Theme.spacing
    leftPadding: Theme.wideSpacing
    rightPadding: Theme.wideSpacing
    font.pointSize: Theme.title3Size
    color: Theme.colors.secondaryText
    wrapMode: Text.Wrap
    maximumLineCount: 4
}
