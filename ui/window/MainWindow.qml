// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// Shown and closed by the program, which lives on without it.
Window {
    id: root

    required property HomeAdapter home

    title: "Hearthmark"
    width: 900
    height: 620
    minimumWidth: 640
    minimumHeight: 420
    color: Theme.colors.window
    LayoutMirroring.enabled: root.home.appearance.isRightToLeft
    LayoutMirroring.childrenInherit: true

    // A popup that closes leaves the focus with the window itself.
    function restoreFocus() {
        if (root.activeFocusItem === root.contentItem)
            homeView.forceActiveFocus(Qt.PopupFocusReason);
    }

    Binding {
        target: Theme
        property: "isDark"
        value: root.home.appearance.isDark
    }

    Binding {
        target: Theme
        property: "isStill"
        value: root.home.appearance.isStill
    }

    TitleBar {
        window: root
        color: Theme.colors.sidebar
        textColor: Theme.colors.text
    }

    onActiveFocusItemChanged: root.restoreFocus()

    Shortcut {
        sequences: Shortcuts.quit
        context: Qt.ApplicationShortcut
        onActivated: root.home.quit()
    }

    HomeView {
        id: homeView

        anchors.fill: parent
        focus: true
        home: root.home
    }
}
