// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit

/// A key combination as it is printed on a key.
Rectangle {
    id: cap

    property string text

    implicitWidth: label.implicitWidth + Theme.unit * 4
    implicitHeight: label.implicitHeight + Theme.unit * 1.5
    radius: Theme.controlRadius
    color: Theme.colors.controlOutline

    // The face leaves a darker lower edge, as a key does.
    Rectangle {
        anchors.fill: parent
        anchors.margins: 1
        anchors.bottomMargin: 2
        radius: Theme.controlRadius - 1
        color: Theme.colors.control
    }
    Label {
        id: label
        anchors.centerIn: parent
        anchors.verticalCenterOffset: -0.5
        text: cap.text
        font: Theme.keys
        silent: true
    }
}
