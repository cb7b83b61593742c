// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Pimloft.Kit

/// A button that shows a symbol only; its text is its tooltip and what a screen reader says.
T.Button {
    id: button

    property string symbol
    property color tint: Theme.colors.secondaryText
    property double size: Theme.symbolSize
    /// Degrees by which the symbol is turned.
    property double turn: 0
    /// Whether it has no face under the pointer.
    property bool plain: false
    readonly property bool isTinted: !Qt.colorEqual(tint, Theme.colors.secondaryText)

    implicitWidth: Math.round(size * 1.5)
    implicitHeight: implicitWidth
    hoverEnabled: true

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: button.symbol
            size: button.size
            rotation: button.turn
            color: !button.isTinted && (button.hovered || button.down) ? Theme.colors.text : button.tint
        }
    }

    background: Rectangle {
        radius: Theme.controlRadius
        color: button.plain ? "transparent" : button.down ? Theme.colors.controlPressed : button.hovered ? Theme.colors.hovered : "transparent"

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
        wanted: button.hovered || button.visualFocus
    }
}
