// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// Stands beside what it edits, and is seen while that is pointed at or has the keyboard. Unseen it can be
// pressed, too, as by assistive programs.
SymbolButton {
    property bool isOffered: false

    symbol: "pencil"
    isSeen: isOffered || hovered || activeFocus
}
