// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Pimloft.Kit

/// A button that shows a symbol only; its text is its tooltip and what a screen reader says.
T.Button {
    id: button

    property string symbol
    /// Whether it takes something away.
    property bool destructive: false
    readonly property color quietColor: destructive ? Theme.colors.danger : Theme.colors.secondaryText

    implicitWidth: Theme.controlHeight
    implicitHeight: Theme.controlHeight
    hoverEnabled: true

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: button.symbol
            size: Theme.symbolSize
            color: !button.destructive && (button.hovered || button.down) ? Theme.colors.text : button.quietColor
        }
    }

    background: Rectangle {
        radius: Theme.controlRadius
        color: button.down ? Theme.colors.controlPressed : button.hovered ? Theme.colors.hovered : "transparent"

        FocusRing {
            visible: button.visualFocus
        }
    }

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: button.clicked()
    Keys.onEnterPressed: button.clicked()

    Hint {
        text: button.text
        visible: button.hovered || button.visualFocus
    }
}
