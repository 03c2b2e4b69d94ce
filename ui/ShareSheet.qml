// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Hearthmark.Controls
import Hearthmark.Ui

// Shows one task as text and copies it. There is nothing in it to lose, so a click beside it closes it
// as well; without a text it has no button that would.
Sheet {
    id: root

    property ShareContainerAdapter adapter

    title: qsTr("Share")
    preferredWidth: Theme.wideSheetWidth
    height: root.largestHeight
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    onAdapterChanged: root.adapter?.load()

    contentItem: ShareContainerView {
        focus: true
        adapter: root.adapter
        onClosed: root.close()
    }
}
