// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Pimloft.Kit
import Pimloft.KeyMapper

/// Asks whether a preset that was switched on is to stay, above everything else in the window. Return keeps it,
/// Escape takes it back.
T.Popup {
    id: sheet

    required property KeyMapperModel settings
    /// What has the keyboard after it, unless something else had it before.
    required property Item owner
    property Item before

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(Theme.unit * 104, parent ? parent.width - 2 * margins : 0)
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    margins: Theme.unit * 4
    padding: Theme.unit * 6
    modal: true
    focus: true
    closePolicy: T.Popup.NoAutoClose
    visible: settings.showConfirmation
    onAboutToShow: before = parent.Window.activeFocusItem
    onClosed: (before || owner).forceActiveFocus()

    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.calm
        }
    }
    exit: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Theme.quick
        }
    }

    T.Overlay.modal: Rectangle {
        color: Theme.colors.shade

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.calm
            }
        }
    }

    background: Rectangle {
        radius: Theme.cardRadius + Theme.unit
        color: Theme.colors.window
        border.width: 1
        border.color: Theme.colors.outline
    }

    contentItem: ColumnLayout {
        spacing: Theme.unit * 3
        LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
        LayoutMirroring.childrenInherit: true
        Accessible.role: Accessible.Dialog
        Accessible.name: title.text
        Keys.onReturnPressed: sheet.settings.confirmPreset()
        Keys.onEnterPressed: sheet.settings.confirmPreset()
        Keys.onEscapePressed: sheet.settings.revertPreset()

        Symbol {
            Layout.alignment: Qt.AlignHCenter
            name: "keyboard.badge.ellipsis"
            size: 40
            color: Theme.colors.accent
            endColor: Theme.colors.accentEnd
        }
        SheetText {
            id: title
            text: qsTr("Confirm Key Remapping")
            font: Theme.title
            Accessible.role: Accessible.Heading
        }
        ColumnLayout {
            spacing: Theme.unit

            SheetText {
                text: qsTr("Enabling \"%1\"").arg(sheet.settings.pendingPreset)
                font: Theme.callout
            }
            SheetText {
                text: qsTr("Press \"Keep\" to confirm, or wait %1 seconds to auto-revert.").arg(sheet.settings.confirmationCountdown)
                font: Theme.callout
                color: Theme.colors.secondaryText
            }
        }
        SheetText {
            text: sheet.settings.confirmationCountdown
            font: Theme.display
            color: Theme.colors.accentText
            silent: true
        }
        RowLayout {
            Layout.topMargin: Theme.unit
            spacing: Theme.unit * 3

            PushButton {
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                text: qsTr("Revert")
                onClicked: sheet.settings.revertPreset()
            }
            PushButton {
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                text: qsTr("Keep")
                prominent: true
                focus: true
                onClicked: sheet.settings.confirmPreset()
            }
        }
    }
}
