// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Ui

// Has a screen reader speak a text by letting it appear. Shows nothing; without a size it would
// not appear to a screen reader either.
Item {
    id: root

    required property FocusAnnouncementAdapter adapter

    width: 1
    height: 1
    visible: root.adapter.presented
    Accessible.role: Accessible.Notification
    Accessible.name: root.adapter.text
}
