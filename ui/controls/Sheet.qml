// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Hearthmark.Controls

// A modal sheet over the window: a heading, which is the title, content, and buttons, which stay where
// they are: where the window is too small, only what is above them scrolls. It follows the keyboard.
// Only its own controls and the Escape key close it: a click outside must not lose a half-typed text.
T.Dialog {
    id: root

    default property alias content: column.data
    property alias heading: headline.text
    property alias buttons: row.data
    // What is left for content that fills the sheet.
    readonly property alias room: scroller.height

    property real preferredWidth: Theme.sheetWidth
    readonly property real largestHeight: (parent?.height ?? 0) - 2 * Theme.pageMargin
    readonly property real pageStep: scroller.height - Theme.controlHeight
    readonly property Transition fade: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.motionDuration
        }
    }

    readonly property Item focusedItem: (root.parent as Item)?.Window.activeFocusItem ?? null
    // Once all that takes the keyboard has taken it.
    readonly property Timer keeping: Timer {
        interval: 0
        onTriggered: root.keepFocus()
    }

    // One that nothing in it uses; it scrolls where it is not accepted.
    signal keyPressed(event: var)

    function isIn(part: Item, item: Item): bool {
        return item !== null && (item === part || root.isIn(part, item.parent));
    }

    // What closes, or is used, behind it must not keep the keyboard: no key would close the sheet then.
    function keepFocus() {
        if (root.opened && root.focusedItem && !root.isIn(root.parent as Item, root.focusedItem))
            root.forceActiveFocus(Qt.PopupFocusReason);
    }

    function scrollTo(y: real) {
        scroller.contentY = Math.max(0, Math.min(y, scroller.contentHeight - scroller.height));
    }

    // A part of the content down to a height, or as much of that as there is room for.
    function show(part: Item, height: real) {
        const top = part.mapToItem(column, 0, 0).y;
        root.scrollTo(Math.min(top, Math.max(top + height - scroller.height, scroller.contentY)));
    }

    function followFocus() {
        root.keeping.restart();
        if (root.isIn(column, root.focusedItem))
            root.show(root.focusedItem, root.focusedItem.height);
    }

    function pressKey(event) {
        const steps = new Map([[Qt.Key_Up, -Theme.controlHeight], [Qt.Key_Down, Theme.controlHeight], [Qt.Key_PageUp, -root.pageStep], [Qt.Key_PageDown, root.pageStep], [Qt.Key_Home, -scroller.contentHeight], [Qt.Key_End, scroller.contentHeight]]);
        root.keyPressed(event);
        if (event.accepted || !scroller.interactive || !steps.has(event.key))
            return;
        event.accepted = true;
        root.scrollTo(scroller.contentY + steps.get(event.key));
    }

    onFocusedItemChanged: root.followFocus()
    onOpened: root.keeping.restart()

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(root.preferredWidth, (parent?.width ?? 0) - 2 * Theme.pageMargin)
    height: Math.min(contentHeight + topPadding + bottomPadding, root.largestHeight)
    padding: 20
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape

    contentItem: FocusScope { // qmllint disable deferred-property-id
        id: form

        implicitHeight: column.height + Theme.wideSpacing + row.height
        focus: true
        onVisibleChanged: root.scrollTo(0)
        Keys.onPressed: event => root.pressKey(event)

        Flickable {
            id: scroller

            anchors.fill: parent
            anchors.leftMargin: -Theme.tightSpacing // focus rings and the scroll bar lie around the content
            anchors.rightMargin: -Theme.spacing - Theme.tightSpacing
            anchors.bottomMargin: row.height + Theme.wideSpacing
            contentHeight: column.height
            boundsBehavior: Flickable.StopAtBounds
            interactive: scroller.contentHeight > scroller.height
            clip: scroller.interactive

            Column {
                id: column

                anchors.left: parent.left
                anchors.leftMargin: Theme.tightSpacing
                width: form.width
                spacing: Theme.wideSpacing

                Heading {
                    id: headline

                    text: root.title
                }
            }

            ScrollBar {
                flickable: scroller
            }
        }

        Row {
            id: row

            anchors.right: parent.right
            anchors.bottom: parent.bottom
            spacing: Theme.spacing
        }
    }

    background: Box {
        radius: Theme.radius + 4
        color: Theme.colors.content
        borderWidth: 1
        borderColor: Theme.colors.separator
    }

    // A popup does not ask whether its transition is enabled.
    enter: Theme.isStill ? null : root.fade

    T.Overlay.modal: Box {
        color: Theme.colors.shade
    }
}
