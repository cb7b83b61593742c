// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit
import Pimloft.QuickVolume

/// An application that plays sound, with its volume and its mute.
RowLayout {
    id: row

    property var app
    property double localVolume: 1
    signal volumeChange(double value)
    signal toggleMute

    Layout.fillWidth: true
    Layout.leftMargin: Theme.unit * 3
    Layout.rightMargin: Theme.unit * 3
    Layout.topMargin: Theme.unit * 1.5
    Layout.bottomMargin: Theme.unit * 0.5
    spacing: Theme.unit * 2.5
    opacity: app.isMuted ? 0.5 : 1
    Component.onCompleted: localVolume = app.volume

    Item {
        implicitWidth: Theme.controlHeight
        implicitHeight: Theme.controlHeight

        IconItem {
            anchors.fill: parent
            icon: row.app.icon
            visible: row.app.hasIcon
        }
        Symbol {
            anchors.centerIn: parent
            name: "app"
            size: Theme.symbolSize
            color: Theme.colors.secondaryText
            visible: !row.app.hasIcon
        }
    }
    ColumnLayout {
        spacing: 0

        RowLayout {
            spacing: Theme.unit * 1.5

            Label {
                Layout.maximumWidth: Math.ceil(implicitWidth)
                Layout.fillWidth: true
                text: row.app.name
                font: Theme.callout
                silent: true
            }
            Rectangle {
                implicitWidth: Theme.unit * 1.5
                implicitHeight: implicitWidth
                radius: width / 2
                color: Theme.colors.success
                visible: row.app.isActive
            }
        }
        LevelSlider {
            Layout.fillWidth: true
            small: true
            level: row.localVolume
            onMoved: {
                row.localVolume = value;
                row.volumeChange(value);
            }
            Accessible.name: row.app.name
        }
    }
    SymbolButton {
        symbol: row.app.isMuted ? "speaker.slash" : "speaker.wave.2"
        tint: row.app.isMuted ? Theme.colors.danger : Theme.colors.secondaryText
        size: Theme.symbolSize * 0.88
        text: row.app.isMuted ? qsTr("Unmute %1").arg(row.app.name) : qsTr("Mute %1").arg(row.app.name)
        onClicked: row.toggleMute()
    }
}
