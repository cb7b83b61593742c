// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Pimloft.Kit

/// The name of one page in the list of pages.
T.AbstractButton {
    id: item

    property string symbol
    property bool selected: false
    property bool focused: false
    readonly property color ink: selected ? Theme.colors.onAccent : Theme.colors.text

    Layout.fillWidth: true
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Theme.controlHeight + Theme.unit
    horizontalPadding: Theme.unit * 2
    hoverEnabled: true
    focusPolicy: Qt.NoFocus
    Accessible.role: Accessible.PageTab
    Accessible.name: text
    Accessible.selectable: true
    Accessible.selected: selected

    contentItem: RowLayout {
        spacing: Theme.unit * 2

        Symbol {
            name: item.symbol
            size: Theme.symbolSize
            color: item.selected ? Theme.colors.onAccent : Theme.colors.accentText
        }
        Label {
            Layout.fillWidth: true
            text: item.text
            color: item.ink
            Accessible.ignored: true
        }
    }

    background: Rectangle {
        radius: Theme.controlRadius
        color: item.selected ? Theme.colors.accent : item.hovered ? Theme.colors.hovered : "transparent"

        FocusRing {
            control: item
            visible: item.focused
        }
    }
}
