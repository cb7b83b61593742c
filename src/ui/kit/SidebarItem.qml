// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit

/// The name of one page in the list of pages.
Item {
    id: item

    property string text
    property string symbol
    property bool selected: false
    property bool focused: false
    signal clicked

    Layout.fillWidth: true
    implicitWidth: row.implicitWidth + Theme.unit * 4
    implicitHeight: Theme.controlHeight + Theme.unit
    Accessible.role: Accessible.PageTab
    Accessible.name: text
    Accessible.focusable: false
    Accessible.selectable: true
    Accessible.selected: selected
    Accessible.onPressAction: clicked()

    Rectangle {
        anchors.fill: parent
        radius: Theme.controlRadius
        color: item.selected ? Theme.colors.accent : pointer.hovered ? Theme.colors.hovered : "transparent"

        FocusRing {
            visible: item.focused
        }
    }

    RowLayout {
        id: row
        anchors.fill: parent
        anchors.leftMargin: Theme.unit * 2
        anchors.rightMargin: Theme.unit * 2
        spacing: Theme.unit * 2

        Symbol {
            name: item.symbol
            size: Theme.symbolSize
            color: item.selected ? Theme.colors.onAccent : Theme.colors.accentText
        }
        Label {
            Layout.fillWidth: true
            text: item.text
            color: item.selected ? Theme.colors.onAccent : Theme.colors.text
            silent: true
        }
    }

    HoverHandler {
        id: pointer
    }
    TapHandler {
        onTapped: item.clicked()
    }
}
