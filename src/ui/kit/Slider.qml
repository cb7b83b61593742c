// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Pimloft.Kit

/// A value picked by dragging a knob, or with the arrow keys.
T.Slider {
    id: slider

    property bool small: false

    implicitWidth: Theme.unit * 40
    implicitHeight: small ? Theme.controlHeight * 0.75 : Theme.controlHeight
    snapMode: T.Slider.SnapAlways
    Accessible.role: Accessible.Slider

    background: Rectangle {
        x: slider.leftPadding
        y: (slider.height - height) / 2
        width: slider.availableWidth
        implicitHeight: slider.small ? 3 : 4
        height: implicitHeight
        radius: height / 2
        color: Theme.colors.track

        AccentFill {
            readonly property double covered: knob.x + knob.width / 2 - parent.x

            x: slider.mirrored ? covered : 0
            width: slider.mirrored ? parent.width - covered : covered
            height: parent.height
            radius: parent.radius
            backwards: slider.mirrored
        }
    }

    handle: Rectangle {
        id: knob
        x: slider.leftPadding + slider.visualPosition * (slider.availableWidth - width)
        y: (slider.height - height) / 2
        implicitWidth: slider.small ? 14 : 20
        implicitHeight: implicitWidth
        radius: height / 2
        color: slider.pressed ? Theme.colors.controlPressed : Theme.colors.knob
        border.width: 1
        border.color: Theme.colors.controlOutline

        FocusRing {
            visible: slider.visualFocus
            radius: height / 2
        }
    }
}
