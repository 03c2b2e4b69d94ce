// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The parts of the range as bars, below the total and what is pointed at. The Tab key comes to one bar, from
// which the arrow keys go on; pressing a bar narrows the page to it, and pressing it again takes that back.
FocusScope {
    id: root

    required property HistoryAdapter adapter
    required property real barsHeight
    property FocusBar pointedAt
    // Of the bar that the keyboard is or was on; before that the one of now, else the first.
    property int reached: -1
    readonly property int walkedTo: Math.min(root.reached >= 0 ? root.reached : Math.max(root.adapter?.current ?? 0, 0), repeater.count - 1)
    readonly property FocusBar walked: repeater.made > 0 ? repeater.itemAt(root.walkedTo) as FocusBar : null
    readonly property FocusBar shown: root.pointedAt ? root.pointedAt : bars.activeFocus ? root.walked : null
    readonly property real barSpacing: repeater.count > 12 ? Theme.focusWidth : Theme.tightSpacing
    readonly property real barWidth: (row.width - (repeater.count - 1) * root.barSpacing) / repeater.count

    function point(bar: FocusBar) {
        if (bar.hovered)
            root.pointedAt = bar;
        else if (root.pointedAt === bar)
            root.pointedAt = null;
    }

    function walk(step: int) {
        root.reached = Math.max(0, Math.min(root.walkedTo + step, repeater.count - 1));
    }

    function press(bar: int) {
        root.reached = bar;
        root.adapter.choose(bar);
    }

    function act(event) {
        event.accepted = true;
        if (event.matches(StandardKey.Copy))
            content.grabToImage(result => root.adapter?.copy(result.image));
        else if (event.key === Qt.Key_Home)
            root.walk(-repeater.count);
        else if (event.key === Qt.Key_End)
            root.walk(repeater.count);
        else
            event.accepted = false;
    }

    implicitHeight: content.height

    // With a ground of its own, for the picture.
    Box {
        id: content

        width: parent.width
        height: labels.y + labels.height
        color: Theme.colors.content

        Item {
            id: texts

            readonly property bool isStacked: texts.width < total.implicitWidth + part.implicitWidth + Theme.spacing

            width: parent.width
            height: part.y + part.height

            ElidedLabel {
                id: total

                readonly property bool ticks: true

                anchors.left: parent.left
                width: Math.min(total.implicitWidth, texts.width)
                text: root.adapter?.total ?? ""
            }

            ElidedLabel {
                id: part

                y: texts.isStacked ? total.height : 0
                anchors.right: parent.right
                width: Math.min(part.implicitWidth, texts.width)
                text: root.shown?.text ?? root.adapter?.title ?? ""
                color: Theme.colors.secondaryText
                Accessible.ignored: true
            }
        }

        FocusScope {
            id: bars

            anchors.top: texts.bottom
            anchors.topMargin: Theme.tightSpacing
            width: parent.width
            height: root.barsHeight
            focus: true
            Accessible.role: Accessible.List
            Accessible.name: qsTr("Chart")
            Keys.onLeftPressed: root.walk(root.LayoutMirroring.enabled ? 1 : -1)
            Keys.onRightPressed: root.walk(root.LayoutMirroring.enabled ? -1 : 1)
            Keys.onPressed: event => root.act(event)

            Row {
                id: row

                anchors.fill: parent
                spacing: root.barSpacing

                Repeater {
                    id: repeater

                    property int made: 0

                    model: root.adapter?.bars ?? null
                    onItemAdded: ++repeater.made

                    HistoryBar {
                        id: bar

                        readonly property bool isChosen: root.adapter?.chosen === bar.index

                        width: root.barWidth
                        height: row.height
                        isLit: root.adapter?.chosen >= 0 ? bar.isChosen : bar.isCurrent
                        focus: bar.index === root.walkedTo
                        activeFocusOnTab: bar.focus
                        Accessible.selectable: true
                        Accessible.selected: bar.isChosen
                        onHoveredChanged: root.point(bar)
                        onTapped: root.press(bar.index)
                    }
                }
            }

            FocusRing {
                parent: root.walked
                visible: bars.activeFocus
                controlRadius: Theme.focusWidth
            }
        }

        HistoryLabels {
            id: labels

            anchors.top: bars.bottom
            anchors.topMargin: Theme.focusWidth + 1 // below the ring
            width: parent.width
            barWidth: root.barWidth
            spacing: root.barSpacing
            model: root.adapter?.bars ?? null
        }
    }
}
