// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit

/// A row with a name, a slider and the value in words. `moved` tells what the user picked.
RowLayout {
    id: row

    property string label
    property string valueText
    property alias from: slider.from
    property alias to: slider.to
    property alias stepSize: slider.stepSize
    property alias value: slider.value
    signal moved(double value)

    Layout.fillWidth: true
    Layout.leftMargin: Theme.unit * 4
    Layout.rightMargin: Theme.unit * 4
    Layout.minimumHeight: Theme.rowHeight
    spacing: Theme.unit * 4

    Label {
        Layout.fillWidth: true
        Layout.preferredWidth: implicitWidth
        Layout.minimumWidth: Math.min(implicitWidth, Theme.unit * 40)
        text: row.label
        wrapMode: Text.Wrap
        maximumLineCount: 4
        silent: true
    }
    Slider {
        id: slider
        Layout.fillWidth: true
        Layout.maximumWidth: Theme.unit * 60
        Layout.preferredWidth: Theme.unit * 60
        Layout.minimumWidth: Theme.unit * 24
        onMoved: row.moved(value)
        Accessible.name: row.label
        Accessible.description: row.valueText
    }
    Label {
        Layout.minimumWidth: Theme.unit * 9
        text: row.valueText
        color: Theme.colors.secondaryText
        font: Theme.keys
        horizontalAlignment: Text.AlignRight
        silent: true
    }
}
