// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit

/// A row with a text that breaks into lines where it must, before what stands at the row's end.
Item {
    id: row

    property string text
    property string symbol
    property color symbolColor
    property alias textFont: label.font
    /// Whether the row tells a screen reader what its text says.
    property bool speaksForText: false
    default property alias trailing: trailing.data

    Layout.fillWidth: true
    implicitWidth: label.implicitWidth + trailing.implicitWidth + Theme.unit * 20
    implicitHeight: Math.max(Theme.rowHeight, label.implicitHeight + Theme.unit * 4, trailing.implicitHeight + Theme.unit * 3)

    Symbol {
        id: mark
        anchors.left: parent.left
        anchors.leftMargin: Theme.unit * 4
        anchors.verticalCenter: parent.verticalCenter
        width: row.symbol ? size : 0
        name: row.symbol
        size: Theme.symbolSize
        color: row.symbolColor
    }
    Label {
        id: label
        anchors.left: mark.right
        anchors.leftMargin: row.symbol ? Theme.unit * 2 : 0
        anchors.right: trailing.left
        anchors.rightMargin: Theme.unit * 4
        anchors.verticalCenter: parent.verticalCenter
        text: row.text
        wrapMode: Text.Wrap
        maximumLineCount: 8
        silent: row.speaksForText
    }
    RowLayout {
        id: trailing
        anchors.right: parent.right
        anchors.rightMargin: Theme.unit * 4
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.unit * 2
    }
}
