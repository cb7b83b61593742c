// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Pimloft.Kit

/// A button with a text, and a symbol before it if there is one: plain, prominent for the one thing that a page
/// is about, or flat for what is rather not done.
T.Button {
    id: button

    property bool prominent: false
    property string symbol
    readonly property color textColor: prominent ? Theme.colors.onAccent : flat ? Theme.colors.accentText : Theme.colors.text
    readonly property color flatFace: down ? Theme.colors.controlPressed : hovered ? Theme.colors.hovered : "transparent"
    readonly property color controlFace: down ? Theme.colors.controlPressed : hovered ? Theme.colors.controlHovered : Theme.colors.control
    readonly property color plainFace: flat ? flatFace : controlFace

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Theme.controlHeight
    horizontalPadding: Theme.unit * 3
    hoverEnabled: true
    opacity: enabled ? 1 : 0.5
    font: Theme.body

    contentItem: RowLayout {
        spacing: Theme.unit * 2

        Symbol {
            visible: button.symbol.length > 0
            name: button.symbol
            size: Theme.symbolSize
            color: button.textColor
        }
        Label {
            Layout.fillWidth: true
            text: button.text
            font: button.font
            color: button.textColor
            horizontalAlignment: Text.AlignHCenter
            silent: true
        }
    }

    background: Rectangle {
        radius: Theme.controlRadius
        color: !button.prominent ? button.plainFace : button.down ? Theme.colors.accentPressed : Theme.colors.accent
        border.width: button.prominent || button.flat ? 0 : 1
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
