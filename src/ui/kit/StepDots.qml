// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit

/// Shows how far the user has come in a sequence of steps.
Row {
    id: dots

    property int count: 1
    property int current: 0

    spacing: Theme.unit * 2
    Accessible.role: Accessible.StaticText
    Accessible.name: qsTr("Step %1 of %2").arg(current + 1).arg(count)

    Repeater {
        model: dots.count

        Rectangle {
            required property int index
            readonly property bool isCurrent: index === dots.current

            width: isCurrent ? Theme.unit * 5 : Theme.unit * 2
            height: Theme.unit * 2
            radius: height / 2
            color: isCurrent ? Theme.colors.accent : Theme.colors.track

            Behavior on width {
                NumberAnimation {
                    duration: Theme.calm
                    easing.type: Easing.OutCubic
                }
            }
            Behavior on color {
                ColorAnimation {
                    duration: Theme.calm
                }
            }
        }
    }
}
