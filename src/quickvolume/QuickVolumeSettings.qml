// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit
import Pimloft.QuickVolume

Page {
    id: page

    required property VolumeMixer mixer

    Section {
        title: qsTr("Volume Mixer")

        Caption {
            alone: true
            text: qsTr("The volume mixer is accessible from the Pimloft menu bar popover.")
        }
    }

    Section {
        title: qsTr("Output Device")

        Caption {
            alone: true
            visible: page.mixer.outputDevices.count === 0
            text: qsTr("No output devices found")
        }
        Repeater {
            model: page.mixer.outputDevices

            ColumnLayout {
                id: device
                required property int index
                required property var record
                spacing: 0

                Divider {
                    visible: device.index > 0
                }
                LeadingText {
                    symbol: "speaker.wave.3.fill"
                    symbolColor: device.record.isDefault ? Theme.colors.accentText : Theme.colors.secondaryText
                    text: device.record.name
                    textFont: Theme.callout
                    speaksForText: true
                    Accessible.role: Accessible.RadioButton
                    Accessible.name: device.record.name
                    Accessible.description: device.record.isDefault ? qsTr("Default") : ""
                    Accessible.focusable: false
                    Accessible.checkable: true
                    Accessible.checked: device.record.isDefault
                    Accessible.onPressAction: page.mixer.setDefaultOutputDevice(device.record.id)

                    Label {
                        visible: device.record.isDefault
                        silent: true
                        text: qsTr("Default")
                        font: Theme.caption
                        color: Theme.colors.accentText
                    }
                    PushButton {
                        visible: !device.record.isDefault
                        text: qsTr("Set Default")
                        font: Theme.caption
                        Accessible.description: device.record.name
                        onClicked: page.mixer.setDefaultOutputDevice(device.record.id)
                    }
                }
            }
        }
    }

    Section {
        title: qsTr("Per-App Volume")

        InfoRow {
            label: qsTr("System Volume")
            value: VolumeDisplay.percent(page.mixer.systemVolume)
        }
        Divider {}
        InfoRow {
            label: qsTr("Audio Apps Detected")
            value: page.mixer.audioApps.count
        }
    }

    Section {
        title: qsTr("Supported Apps")

        SupportedAppRow {
            name: qsTr("Music")
            feature: qsTr("Volume slider via AppleScript")
        }
        Divider {}
        SupportedAppRow {
            name: qsTr("Spotify")
            feature: qsTr("Volume slider via AppleScript")
        }
        Divider {}
        SupportedAppRow {
            name: qsTr("Browsers")
            feature: qsTr("Mute toggle")
        }
        Divider {}
        SupportedAppRow {
            name: qsTr("Other media apps")
            feature: qsTr("Mute toggle")
        }
        Divider {}
        Caption {
            alone: true
            text: qsTr("Per-app volume works via AppleScript for supported apps (Music, Spotify). For other apps, a mute toggle is provided.")
        }
        Caption {
            text: qsTr("Full per-app volume control (like Windows Volume Mixer) requires a virtual audio driver, planned for a future update.")
        }
    }
}
