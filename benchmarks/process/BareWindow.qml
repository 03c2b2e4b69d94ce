// SPDX-License-Identifier: MIT
import QtQuick

Window {
    visible: true
    width: 900
    height: 620
    title: "Bare"

    Text {
        anchors.centerIn: parent
        text: "A window"
    }
}
