// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit

/// A key combination as it is printed on a key.
Rectangle {
    id: cap

    property string text
    /// Whether it stands in a line of small text.
    property bool small: false

    implicitWidth: label.implicitWidth + Theme.unit * (small ? 3 : 4)
    implicitHeight: label.implicitHeight + Theme.unit * 1.5
    radius: small ? 4 : Theme.controlRadius
    color: Theme.colors.controlOutline

    // The face leaves a darker lower edge, as a key does.
    Rectangle {
        anchors.fill: parent
        anchors.margins: 1
        anchors.bottomMargin: 2
        radius: cap.radius - 1
        color: Theme.colors.control
    }
    Label {
        id: label
        anchors.centerIn: parent
        anchors.verticalCenterOffset: -0.5
        text: cap.text
        font: cap.small ? Theme.keysCaption : Theme.keys
        silent: true
    }
}
