// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Pimloft.Kit

/// Two buttons that make a number smaller and larger; so do the arrow keys. The number stands beside it.
T.SpinBox {
    id: stepper

    implicitWidth: Theme.controlHeight * 2 + 1
    implicitHeight: Theme.controlHeight
    editable: false
    focusPolicy: Qt.TabFocus

    component Half: Item {
        id: half

        property string symbol
        property bool usable: true
        property bool held: false
        property bool pointed: false

        implicitWidth: Theme.controlHeight
        implicitHeight: Theme.controlHeight

        Rectangle {
            anchors.fill: parent
            anchors.margins: 1
            radius: Theme.controlRadius - 1
            color: half.held ? Theme.colors.controlPressed : Theme.colors.controlHovered
            visible: half.usable && (half.held || half.pointed)
        }
        Symbol {
            anchors.centerIn: parent
            name: half.symbol
            size: Math.round(Theme.symbolSize * 0.8)
            color: Theme.colors.text
            opacity: half.usable ? 1 : 0.35
        }
    }

    down.indicator: Half {
        x: stepper.mirrored ? stepper.width - width : 0
        height: stepper.height
        symbol: "minus"
        usable: stepper.enabled && stepper.value > stepper.from
        held: stepper.down.pressed
        pointed: stepper.down.hovered
    }
    up.indicator: Half {
        x: stepper.mirrored ? 0 : stepper.width - width
        height: stepper.height
        symbol: "plus"
        usable: stepper.enabled && stepper.value < stepper.to
        held: stepper.up.pressed
        pointed: stepper.up.hovered
    }

    background: Rectangle {
        radius: Theme.controlRadius
        color: Theme.colors.control
        border.width: 1
        border.color: Theme.colors.controlOutline

        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            y: Theme.unit
            width: 1
            height: parent.height - 2 * Theme.unit
            color: Theme.colors.controlOutline
        }
        FocusRing {
            visible: stepper.visualFocus
        }
    }
}
