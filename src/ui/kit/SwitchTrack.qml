// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Pimloft.Kit

/// The drawing of a switch, which slides its knob from the leading to the trailing end.
Rectangle {
    id: track

    required property T.Switch control

    implicitWidth: 38
    implicitHeight: 22
    radius: height / 2
    opacity: control.enabled ? 1 : 0.45
    color: Theme.colors.track

    AccentFill {
        anchors.fill: parent
        radius: parent.radius
        opacity: !track.control.checked ? 0 : track.control.down ? 0.85 : 1
        backwards: track.control.mirrored

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.quick
            }
        }
    }

    Rectangle {
        readonly property bool atRight: track.control.checked !== track.control.mirrored

        x: atRight ? track.width - width - 2 : 2
        y: 2
        width: track.control.down ? 21 : 18
        height: 18
        radius: 9
        color: Theme.colors.knob

        Behavior on x {
            NumberAnimation {
                duration: Theme.calm
                easing.type: Easing.OutCubic
            }
        }
        Behavior on width {
            NumberAnimation {
                duration: Theme.quick
            }
        }
    }

    FocusRing {
        visible: track.control.visualFocus
        radius: height / 2
    }
}
