// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Pimloft.Kit

/// A button that shows a symbol only; its text is its tooltip and what a screen reader says.
T.Button {
    id: button

    property string symbol
    property color tint: Theme.colors.secondaryText
    property double symbolSize: Theme.symbolSize
    readonly property bool plain: Qt.colorEqual(tint, Theme.colors.secondaryText)

    implicitWidth: Theme.controlHeight
    implicitHeight: Theme.controlHeight
    hoverEnabled: true

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: button.symbol
            size: button.symbolSize
            color: button.plain && (button.hovered || button.down) ? Theme.colors.text : button.tint
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
