// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit
import Pimloft.QuickVolume

/// The volume of everything, with its mute.
RowLayout {
    id: row

    property double volume
    property bool isMuted: false
    signal volumeChange(double value)
    signal toggleMute

    Layout.fillWidth: true
    Layout.leftMargin: Theme.unit * 3
    Layout.rightMargin: Theme.unit * 3
    Layout.minimumHeight: Theme.rowHeight + Theme.unit
    spacing: Theme.unit * 2.5

    SymbolButton {
        symbol: VolumeDisplay.systemSymbol(slider.value, row.isMuted)
        tint: row.isMuted ? Theme.colors.danger : Theme.colors.accentText
        text: row.isMuted ? qsTr("Unmute") : qsTr("Mute")
        onClicked: row.toggleMute()
    }
    Label {
        text: qsTr("System")
        font: Theme.calloutBold
        silent: true
    }
    LevelSlider {
        id: slider
        Layout.fillWidth: true
        level: row.volume
        onMoved: row.volumeChange(value)
        Accessible.name: qsTr("System")
        Accessible.description: percentage.text
    }
    Label {
        id: percentage
        Layout.minimumWidth: Theme.unit * 8
        text: VolumeDisplay.percent(slider.value)
        font: Theme.keysCaption
        color: Theme.colors.secondaryText
        horizontalAlignment: Text.AlignRight
        silent: true
    }
}
