// SPDX-License-Identifier: MIT
import QtQuick

// One line of a text. Where it does not fit, all of it is shown beside while it is pointed at.
Label {
    id: root

    // The keyboard points at it.
    property bool isMarked: false
    readonly property bool isPointedAt: root.truncated && (pointer.hovered || root.isMarked)
    // Made when it is first wanted: most texts fit.
    property Item toolTip

    function makeToolTip() {
        if (root.isPointedAt && !root.toolTip)
            root.toolTip = Qt.createComponent(Qt.resolvedUrl("ToolTip.qml")).createObject(root, {
                label: root
            }) as Item;
    }

    elide: Text.ElideRight
    maximumLineCount: 1
    onIsPointedAtChanged: root.makeToolTip()

    HoverHandler {
        id: pointer
    }
}
