// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit

/// A row with a text and a button at its end.
RowLayout {
    id: row

    property string label
    property alias buttonText: button.text
    property alias prominent: button.prominent
    signal clicked

    Layout.fillWidth: true
    Layout.leftMargin: Theme.unit * 4
    Layout.rightMargin: Theme.unit * 4
    Layout.minimumHeight: Theme.rowHeight
    spacing: Theme.unit * 4

    Label {
        Layout.fillWidth: true
        text: row.label
        wrapMode: Text.Wrap
        maximumLineCount: 3
    }
    PushButton {
        id: button
        onClicked: row.clicked()
    }
}
