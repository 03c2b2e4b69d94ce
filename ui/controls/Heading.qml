// SPDX-License-Identifier: MIT
import QtQuick

// The heading of a sheet or of a part of the window.
Paragraph {
    font.pointSize: Theme.title2Size
    font.weight: Font.DemiBold
    maximumLineCount: 2
    elide: Text.ElideRight
    Accessible.role: Accessible.Heading
}
