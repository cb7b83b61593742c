// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit

/// A row that tells how something stands, with room for what can be done about it.
RowLayout {
    id: row

    enum Kind {
        Good,
        Warning
    }

    property string symbol
    property string text
    property int kind: StatusRow.Good
    default property alias actions: trailing.data

    Layout.fillWidth: true
    Layout.leftMargin: Theme.unit * 4
    Layout.rightMargin: Theme.unit * 4
    Layout.minimumHeight: Theme.rowHeight
    spacing: Theme.unit * 2

    Symbol {
        name: row.symbol
        size: Theme.symbolSize
        color: row.kind === StatusRow.Good ? Theme.colors.success : Theme.colors.warning
    }
    Label {
        Layout.fillWidth: true
        Layout.topMargin: Theme.unit * 2
        Layout.bottomMargin: Theme.unit * 2
        text: row.text
        wrapMode: Text.Wrap
        maximumLineCount: 3
    }
    RowLayout {
        id: trailing
        spacing: Theme.unit * 2
    }
}
