// SPDX-License-Identifier: MIT
import QtQuick

// A text that is as wide as what it stands in, and as high as it needs; nothing where it is empty.
Label {
    width: parent.width
    visible: text.length > 0
    wrapMode: Text.Wrap
}
