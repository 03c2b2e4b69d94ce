// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// What there is to know about the program.
Sheet {
    id: root

    required property AboutAdapter about

    title: qsTr("About Hearthmark")

    contentItem: AboutForm {
        focus: true
        about: root.about
        onClosed: root.close()
    }
}
