// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit
import Pimloft.Ui

PopoverFrame {
    id: popover

    required property PopoverController controller
    readonly property AppState appState: controller.appState
    property bool showVolumeMixer: false

    title: "Pimloft"
    floating: controller.blends
    onTouchedOutside: controller.close()

    Connections {
        target: popover.controller
        function onClosed() {
            popover.showVolumeMixer = false;
        }
    }

    Header {
        Layout.fillWidth: true
        title: "Pimloft"

        SymbolButton {
            symbol: "gear"
            text: qsTr("Open Settings")
            onClicked: popover.controller.openSettings()
        }
    }

    Section {
        ModuleQuickToggle {
            icon.name: popover.appState.windowSnap.icon
            text: popover.appState.windowSnap.name
            checked: popover.appState.windowSnap.isEnabled
            onSwitched: on => popover.appState.windowSnap.isEnabled = on
        }
        ModuleQuickToggle {
            icon.name: popover.appState.clipboardPlus.icon
            text: popover.appState.clipboardPlus.name
            checked: popover.appState.clipboardPlus.isEnabled
            onSwitched: on => popover.appState.clipboardPlus.isEnabled = on
        }
        ModuleQuickToggle {
            icon.name: popover.appState.finderFix.icon
            text: popover.appState.finderFix.name
            checked: popover.appState.finderFix.isEnabled
            onSwitched: on => popover.appState.finderFix.isEnabled = on
        }
        ModuleQuickToggle {
            icon.name: popover.appState.keyMapper.icon
            text: popover.appState.keyMapper.name
            badge: popover.appState.keyMapper.isRemappingActive ? qsTr("Active") : ""
            checked: popover.appState.keyMapper.isEnabled
            onSwitched: on => popover.appState.keyMapper.isEnabled = on
        }
        ModuleQuickToggle {
            icon.name: popover.appState.quickVolume.icon
            text: popover.appState.quickVolume.name
            checked: popover.appState.quickVolume.isEnabled
            showDisclosure: true
            unfolded: popover.showVolumeMixer
            onSwitched: on => popover.appState.quickVolume.isEnabled = on
            onDisclosed: popover.showVolumeMixer = !popover.showVolumeMixer
        }
        Disclosure {
            Layout.fillWidth: true
            page: popover.appState.quickVolume.panelView
            unfolded: popover.showVolumeMixer
        }
    }

    WarningLine {
        Layout.fillWidth: true
        visible: !popover.controller.accessibility.isAccessibilityGranted
        symbol: "exclamationmark.triangle"
        text: qsTr("Accessibility permission is required for some modules")
    }

    PushButton {
        Layout.alignment: Qt.AlignRight
        text: qsTr("Quit")
        onClicked: popover.controller.quit()
    }
}
