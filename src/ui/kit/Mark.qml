// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit

/// A symbol on a tile in the brand's colours.
Rectangle {
    id: mark

    property string symbol
    property double size: Theme.controlHeight + Theme.unit

    implicitWidth: size
    implicitHeight: size
    radius: size * 0.26
    gradient: Gradient {
        GradientStop {
            position: 0
            color: Theme.colors.accent
        }
        GradientStop {
            position: 1
            color: Theme.colors.accentEnd
        }
    }

    Symbol {
        anchors.centerIn: parent
        name: mark.symbol
        size: Math.round(mark.size * 0.62)
        color: Theme.colors.onAccent
    }
}
