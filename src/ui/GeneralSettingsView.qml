// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit
import Pimloft.Ui

Page {
    id: page

    required property GeneralSettings model
    readonly property bool granted: model.accessibility.isAccessibilityGranted
    readonly property bool updateIsKnown: model.updateManager.updateAvailable && model.updateManager.latestVersion !== undefined

    Section {
        title: qsTr("Startup")

        SwitchRow {
            text: qsTr("Launch at login")
            checked: page.model.settings.launchAtLogin
            onSwitched: on => page.model.settings.launchAtLogin = on
        }
    }

    Section {
        title: qsTr("Accessibility")

        StatusRow {
            kind: page.granted ? StatusRow.Good : StatusRow.Warning
            symbol: page.granted ? "checkmark.circle.fill" : "exclamationmark.triangle.fill"
            text: page.granted ? qsTr("Permission Granted") : qsTr("Permission Required")

            PushButton {
                text: qsTr("Open Settings")
                onClicked: page.model.openAccessibilitySettings()
            }
        }
        Caption {
            text: qsTr("WindowSnap, KeyMapper, and FinderFix require Accessibility permission to function.")
        }
    }

    Section {
        title: qsTr("Updates")

        StatusRow {
            visible: page.updateIsKnown
            symbol: "arrow.down.circle.fill"
            text: qsTr("v%1 available").arg(page.model.updateManager.latestVersion)

            PushButton {
                text: qsTr("Download Update")
                prominent: true
                onClicked: page.model.updateManager.downloadUpdate()
            }
        }
        Divider {
            visible: page.updateIsKnown
        }
        ButtonRow {
            text: page.updateIsKnown ? "" : qsTr("Up to date")
            buttonText: page.model.updateManager.isCheckingForUpdates ? qsTr("Checking...") : qsTr("Check Now")
            onClicked: page.model.updateManager.checkForUpdatesNow()
        }
    }

    Section {
        title: qsTr("About")

        InfoRow {
            label: qsTr("Version")
            value: page.model.appVersion
        }
        Divider {}
        InfoRow {
            label: qsTr("Build")
            value: page.model.buildNumber
        }
    }
}
