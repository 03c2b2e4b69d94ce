// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// The title of a section of the detail pane.
Label {
    width: parent.width
    topPadding: Theme.wideSpacing
    font.pointSize: Theme.title3Size
    font.weight: Font.DemiBold
    Accessible.role: Accessible.Heading
}
