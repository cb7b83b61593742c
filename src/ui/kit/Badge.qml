// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit

/// A short word in a pill beside a name.
Rectangle {
    id: badge

    property string text

    implicitWidth: label.implicitWidth + Theme.unit * 4
    implicitHeight: label.implicitHeight + Theme.unit
    radius: height / 2
    color: Theme.colors.successSoft

    Label {
        id: label
        anchors.centerIn: parent
        text: badge.text
        font: Theme.caption
        color: Theme.colors.success
    }
}
