// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Pimloft.Kit

/// Shows which control has the keyboard, once the keyboard is used.
Rectangle {
    required property T.Control control

    anchors.fill: parent
    anchors.margins: -3
    radius: Theme.controlRadius + 3
    color: "transparent"
    border.width: 2
    border.color: Theme.colors.focusRing
    visible: control.visualFocus
}
