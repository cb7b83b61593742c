// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit
import Pimloft.WindowSnap

/// A row with a layout's picture, its name and its keys.
RowLayout {
    id: row

    property alias fractions: preview.fractions
    property string name
    property string keys

    Layout.fillWidth: true
    Layout.leftMargin: Theme.unit * 4
    Layout.rightMargin: Theme.unit * 4
    Layout.minimumHeight: Theme.rowHeight + Theme.unit * 2
    spacing: Theme.unit * 3
    Accessible.role: Accessible.ListItem
    Accessible.name: qsTr("%1: %2").arg(name).arg(keys)

    LayoutMiniPreview {
        id: preview
        Layout.preferredWidth: 48
        Layout.preferredHeight: 28
    }
    Label {
        Layout.fillWidth: true
        text: row.name
        font: Theme.callout
        silent: true
    }
    Label {
        text: row.keys
        font: Theme.keysCaption
        color: Theme.colors.secondaryText
        silent: true
    }
}
