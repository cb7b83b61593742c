// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Pimloft.Kit

/// A button with a text: plain, or prominent for the one thing that a page is about.
T.Button {
    id: button

    property bool prominent: false
    readonly property color plainFace: down ? Theme.colors.controlPressed : hovered ? Theme.colors.controlHovered : Theme.colors.control

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Theme.controlHeight
    horizontalPadding: Theme.unit * 3
    hoverEnabled: true
    opacity: enabled ? 1 : 0.5
    font: Theme.body

    contentItem: Label {
        text: button.text
        font: button.font
        color: button.prominent ? Theme.colors.onAccent : Theme.colors.text
        horizontalAlignment: Text.AlignHCenter
        silent: true
    }

    background: Rectangle {
        radius: Theme.controlRadius
        color: !button.prominent ? button.plainFace : button.down ? Theme.colors.accentPressed : Theme.colors.accent
        border.width: button.prominent ? 0 : 1
        border.color: Theme.colors.controlOutline

        FocusRing {
            visible: button.visualFocus
        }
    }

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: button.clicked()
    Keys.onEnterPressed: button.clicked()
}
