// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit

/// A symbol on a disc that is lit while what it stands for is on.
Rectangle {
    id: disc

    property string symbol
    property bool lit: true

    implicitWidth: Theme.controlHeight
    implicitHeight: Theme.controlHeight
    radius: height / 2
    color: Theme.colors.unlit

    AccentFill {
        anchors.fill: parent
        radius: parent.radius
        opacity: disc.lit ? 1 : 0

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.calm
            }
        }
    }

    Symbol {
        anchors.centerIn: parent
        name: disc.symbol
        size: Theme.symbolSize
        color: disc.lit ? Theme.colors.onAccent : Theme.colors.secondaryText
    }
}
