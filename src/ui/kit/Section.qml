// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit

/// A titled card of rows.
ColumnLayout {
    id: section

    property string title
    default property alias rows: column.data

    Layout.fillWidth: true
    spacing: Theme.unit * 2
    Accessible.role: Accessible.Grouping
    Accessible.name: title

    Label {
        Layout.fillWidth: true
        leftPadding: Theme.unit * 4
        rightPadding: Theme.unit * 4
        text: section.title
        font: Theme.headline
        visible: section.title.length > 0
        Accessible.role: Accessible.Heading
    }

    Rectangle {
        Layout.fillWidth: true
        implicitWidth: column.implicitWidth
        implicitHeight: column.implicitHeight
        radius: Theme.cardRadius
        color: Theme.colors.card
        border.width: 1
        border.color: Theme.colors.outline

        ColumnLayout {
            id: column
            anchors.fill: parent
            spacing: 0
        }
    }
}
