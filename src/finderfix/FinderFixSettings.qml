// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit
import Pimloft.FinderFix

Page {
    id: page

    required property FinderFixModel settings

    Section {
        title: qsTr("Cut & Paste")

        Caption {
            alone: true
            text: qsTr("Cmd+X in Finder cuts selected files")
        }
        Caption {
            text: qsTr("Works across different Finder windows. Handles locked files, permission errors, and cross-volume moves automatically.")
        }
    }

    Section {
        title: qsTr("New File Templates")

        Repeater {
            model: page.settings.fileTemplates

            ColumnLayout {
                id: kind
                required property int index
                required property var modelData
                spacing: 0

                Divider {
                    visible: kind.index > 0
                }
                LeadingText {
                    symbol: kind.modelData.icon
                    symbolColor: Theme.colors.accentText
                    text: kind.modelData.title
                }
            }
        }
        Repeater {
            model: page.settings.customTemplates

            ColumnLayout {
                id: custom
                required property string modelData
                spacing: 0

                Divider {}
                LeadingText {
                    text: custom.modelData
                }
            }
        }
        Divider {}
        PushButton {
            Layout.leftMargin: Theme.unit * 4
            Layout.topMargin: Theme.unit * 3
            Layout.bottomMargin: Theme.unit * 3
            text: qsTr("Open Templates Folder")
            onClicked: page.settings.openTemplatesFolder()
        }
        Caption {
            text: qsTr("Add custom templates to this folder. They'll appear in the \"New File\" submenu.")
        }
    }

    Section {
        title: qsTr("Finder Extension")

        Caption {
            alone: true
            text: qsTr("The Finder Sync Extension must be enabled in System Settings for \"New File\" to appear in Finder's context menu.")
        }
        PushButton {
            Layout.leftMargin: Theme.unit * 4
            Layout.bottomMargin: Theme.unit * 3
            text: qsTr("Open Finder Extension Settings")
            onClicked: page.settings.openExtensionSettings()
        }
    }
}
