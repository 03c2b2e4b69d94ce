// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// The box of an interval of the detail pane: a clock beside its time, and at the end a button and when it
// began; below the time where there is no room for them.
Box {
    id: root

    required property DeletableRow row
    required property string text
    required property string began
    property string buttonText
    property string buttonName: root.buttonText
    property bool canPress: true
    property real symbolSize: Theme.symbolSize
    property real textSize: Theme.bodySize
    property real bottomPadding: Theme.spacing
    // Where it does not fit it gets smaller instead of going on in the next line.
    property bool isOneLine: false
    // The Tab key comes to the button by itself.
    property bool isButtonInChain: true
    // Of what stands at the end, side by side.
    readonly property real buttonWidth: root.buttonText.length > 0 ? button.implicitWidth + Theme.spacing : 0
    readonly property real endWidth: root.buttonWidth + date.implicitWidth + Theme.spacing
    readonly property bool isStacked: root.symbolSize + time.advanceWidth + edit.width + root.endWidth + 4 * Theme.spacing > root.width
    readonly property real lineHeight: root.isStacked ? label.height : Math.max(label.height, end.height)

    signal pressed

    function focusButton() {
        button.forceActiveFocus(Qt.TabFocusReason);
    }

    // What starts a focus disables the button, by which the keyboard would be nowhere.
    function keepKeyboard() {
        if (button.focus && !button.enabled && root.row.ListView.view?.activeFocus)
            root.row.forceActiveFocus(Qt.OtherFocusReason);
    }

    implicitHeight: (root.isStacked ? end.y + end.height : Theme.spacing + root.lineHeight) + root.bottomPadding
    radius: Theme.radius
    color: Theme.colors.window

    FocusRing {
        visible: root.row.focusVisible
        controlRadius: Theme.radius
    }

    Symbol {
        id: icon

        anchors.left: parent.left
        anchors.leftMargin: Theme.spacing
        anchors.verticalCenter: label.verticalCenter
        name: "clock"
        size: root.symbolSize
        color: Theme.colors.secondaryText
    }

    Label {
        id: label

        y: Theme.spacing + (root.lineHeight - label.height) / 2
        anchors.left: icon.right
        anchors.leftMargin: Theme.spacing
        anchors.right: parent.right
        anchors.rightMargin: edit.width + 2 * Theme.spacing + (root.isStacked ? 0 : root.endWidth)
        text: root.text
        font.pointSize: root.textSize
        fontSizeMode: root.isOneLine ? Text.HorizontalFit : Text.FixedSize
        minimumPointSize: Theme.bodySize
        wrapMode: root.isOneLine ? Text.NoWrap : Text.Wrap
        Accessible.ignored: true
    }

    // Its key is F2 on the row.
    EditButton {
        id: edit

        anchors.right: root.isStacked ? parent.right : end.left
        anchors.rightMargin: Theme.spacing
        anchors.verticalCenter: label.verticalCenter
        height: Theme.symbolSize
        isOffered: root.row.hovered || root.row.focusVisible
        activeFocusOnTab: false
        text: qsTr("Edit interval")
        onClicked: root.row.editRequested()
    }

    TextMetrics {
        id: time

        font: label.font
        text: root.text
    }

    Grid {
        id: end

        y: root.isStacked ? label.y + label.height + Theme.tightSpacing : Theme.spacing + (root.lineHeight - end.height) / 2
        anchors.right: parent.right
        anchors.rightMargin: Theme.spacing
        columns: root.buttonWidth > 0 && root.endWidth + Theme.spacing <= root.width ? 2 : 1
        spacing: Theme.spacing
        rowSpacing: Theme.tightSpacing
        horizontalItemAlignment: Grid.AlignRight
        verticalItemAlignment: Grid.AlignVCenter

        PushButton {
            id: button

            visible: root.buttonText.length > 0
            enabled: root.canPress
            activeFocusOnTab: root.isButtonInChain
            text: root.buttonText
            Accessible.name: root.buttonName
            onClicked: root.pressed()
            onEnabledChanged: root.keepKeyboard()
            // That key is for the row, when it is the row that is marked.
            Keys.onDeletePressed: event => event.accepted = true
        }

        Label {
            id: date

            width: Math.min(implicitWidth, root.width - 2 * Theme.spacing)
            visible: root.began.length > 0
            text: root.began
            color: Theme.colors.secondaryText
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignRight
            Accessible.ignored: true
        }
    }
}
