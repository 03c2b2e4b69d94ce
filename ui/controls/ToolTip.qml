// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// The whole of a text of which its label shows a part, above or below that, after a moment. Read by nobody:
// the label has the text as its name.
Box {
    id: root

    required property ElidedLabel label
    readonly property bool isWanted: root.label.isPointedAt
    // What scrolls the label away.
    property Flickable scroller

    // Over the window or over a sheet, whichever the label is on.
    function show() {
        let layer = root.label.parent;
        while (layer.parent && layer.parent !== root.label.Window.contentItem) {
            if (layer as Flickable)
                root.scroller = layer as Flickable;
            layer = layer.parent;
        }
        root.parent = layer;
        const above = root.label.mapToItem(layer, 0, -root.height - Theme.tightSpacing);
        const below = root.label.mapToItem(layer, 0, root.label.height + Theme.tightSpacing);
        const start = root.label.LayoutMirroring.enabled ? below.x + root.label.width - root.width : below.x;
        root.x = Math.max(Theme.spacing, Math.min(start, layer.width - root.width - Theme.spacing));
        root.y = below.y + root.height <= layer.height ? below.y : Math.max(0, above.y);
        root.visible = true;
    }

    function hide() {
        delay.stop();
        root.visible = false;
    }

    function follow() {
        if (root.isWanted)
            delay.start();
        else
            root.hide();
    }

    onIsWantedChanged: root.follow()
    z: 10000 // over the sheet, too
    width: text.contentWidth + 2 * Theme.spacing
    height: text.height + 2 * Theme.tightSpacing
    visible: false
    radius: Theme.controlRadius
    color: Theme.colors.content
    borderWidth: 1
    borderColor: Theme.colors.buttonBorder
    Accessible.ignored: true

    Label {
        id: text

        anchors.left: parent.left
        anchors.leftMargin: Theme.spacing
        y: Theme.tightSpacing
        width: Theme.toolTipWidth
        text: root.label.text
        textFormat: root.label.textFormat
        wrapMode: Text.Wrap
        elide: Text.ElideRight
        maximumLineCount: Theme.toolTipMaximumLineCount
        Accessible.ignored: true
    }

    Timer {
        id: delay

        interval: Theme.toolTipDelay
        onTriggered: root.show()
    }

    Connections {
        target: root.scroller
        function onContentYChanged() {
            root.hide();
        }
    }
}
