// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit
import Pimloft.Ui

/// Every control of the kit in the states that no page shows yet.
WindowContent {
    Page {
        anchors.fill: parent

        Section {
            title: "Rows"

            SwitchRow {
                text: "A switch that is on, with a text that is so long that it has to break into two lines of the row, at the least"
                checked: true
            }
            Divider {}
            SwitchRow {
                text: "A switch that cannot be used"
                enabled: false
            }
            Divider {}
            ButtonRow {
                text: "A row with a button"
                buttonText: "Button"
            }
            Divider {}
            ButtonRow {
                text: "The one thing that matters, explained at such a length that the text needs a second line beside it"
                buttonText: "Prominent"
                prominent: true
            }
            Divider {}
            ShortcutRow {
                keys: "^+^+←"
                action: "Snap left 50%"
                problem: "Another application uses this shortcut."
            }
            Divider {}
            StatusRow {
                kind: StatusRow.Warning
                symbol: "exclamationmark.triangle.fill"
                text: "Permission Required"

                PushButton {
                    text: "Not now"
                    enabled: false
                }
                PushButton {
                    text: "Do it"
                    prominent: true
                }
            }
        }
        Section {
            title: "Modules"

            ModuleQuickToggle {
                icon.name: "keyboard"
                text: "KeyMapper"
                badge: "Active"
                checked: true
            }
            ModuleQuickToggle {
                icon.name: "keyboard"
                text: "A name that is far too long for the row that it stands in and has to end"
                badge: "Active"
            }
        }
        WarningLine {
            width: parent.width
            symbol: "exclamationmark.triangle"
            text: "Accessibility permission is required for some modules"
        }
    }
}
