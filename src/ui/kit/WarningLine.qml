// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit

/// A remark that something does not work, and why.
Rectangle {
    id: line

    property string symbol
    property string text

    implicitWidth: row.implicitWidth + Theme.unit * 6
    implicitHeight: row.implicitHeight + Theme.unit * 5
    radius: Theme.cardRadius
    color: Theme.colors.warningSoft

    RowLayout {
        id: row
        anchors.fill: parent
        anchors.margins: Theme.unit * 2.5
        anchors.leftMargin: Theme.unit * 3
        anchors.rightMargin: Theme.unit * 3
        spacing: Theme.unit * 2

        Symbol {
            name: line.symbol
            size: Theme.symbolSize
            color: Theme.colors.warning
        }
        Label {
            Layout.fillWidth: true
            Layout.preferredWidth: Theme.unit * 40
            text: line.text
            font: Theme.callout
            wrapMode: Text.Wrap
            maximumLineCount: 4
        }
    }
}
