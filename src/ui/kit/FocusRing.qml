// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit

/// Shows what has the keyboard, around what it stands in.
Rectangle {
    anchors.fill: parent
    anchors.margins: -3
    radius: Theme.controlRadius + 3
    color: "transparent"
    border.width: Theme.isHighContrast ? 3 : 2
    border.color: Theme.colors.focusRing
}
