// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Pimloft.Kit
import Pimloft.QuickVolume

/// The mixer: where the sound goes, how loud it is, and the applications that make it. Being shown, it looks again.
Flickable {
    id: view

    required property VolumeMixer mixer

    implicitHeight: Math.min(column.implicitHeight, Theme.panelListHeight)
    contentHeight: column.implicitHeight
    interactive: contentHeight > height
    boundsBehavior: Flickable.StopAtBounds
    clip: interactive
    Component.onCompleted: mixer.refresh()

    T.ScrollBar.vertical: ScrollBar {}

    ColumnLayout {
        id: column
        width: view.width
        spacing: 0

        Label {
            Layout.fillWidth: true
            leftPadding: Theme.unit * 3
            rightPadding: leftPadding
            topPadding: Theme.unit * 3
            bottomPadding: Theme.unit
            text: qsTr("Output")
            font: Theme.caption
            color: Theme.colors.secondaryText
            Accessible.role: Accessible.Heading
        }
        Repeater {
            model: view.mixer.outputDevices

            OutputDeviceRow {
                required property var record
                name: record.name
                isDefault: record.isDefault
                onPicked: view.mixer.setDefaultOutputDevice(record.id)
            }
        }
        Divider {
            Layout.topMargin: Theme.unit * 1.5
            Layout.leftMargin: Theme.unit * 3
            Layout.rightMargin: Theme.unit * 3
        }
        SystemVolumeRow {
            volume: view.mixer.systemVolume
            isMuted: view.mixer.isSystemMuted
            onVolumeChange: value => view.mixer.setSystemVolume(value)
            onToggleMute: view.mixer.toggleSystemMute()
        }
        Divider {
            Layout.leftMargin: Theme.unit * 3
            Layout.rightMargin: Theme.unit * 3
            visible: view.mixer.audioApps.count > 0
        }
        Repeater {
            model: view.mixer.audioApps

            AppVolumeRow {
                required property var record
                app: record
                onVolumeChange: value => view.mixer.setVolume(record, value)
                onToggleMute: view.mixer.toggleMute(record)
            }
        }
        Item {
            implicitHeight: Theme.unit
        }
    }
}
