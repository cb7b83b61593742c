// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit

/// A row with a name and what it is.
RowLayout {
    id: row

    property string label
    property string value

    Layout.fillWidth: true
    Layout.leftMargin: Theme.unit * 4
    Layout.rightMargin: Theme.unit * 4
    Layout.minimumHeight: Theme.rowHeight
    spacing: Theme.unit * 4

    Label {
        Layout.fillWidth: true
        text: row.label
    }
    Label {
        Layout.maximumWidth: row.width * 0.6
        text: row.value
        color: Theme.colors.secondaryText
        horizontalAlignment: Text.AlignRight
    }
}
