// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit
import Pimloft.Ui

/// What a new version brings.
WindowContent {
    id: view

    required property WhatsNew news

    implicitWidth: Theme.unit * 105
    implicitHeight: Theme.unit * 100
    Keys.onReturnPressed: news.dismiss()
    Keys.onEnterPressed: news.dismiss()

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: Theme.unit * 6
        spacing: Theme.unit * 5

        RowLayout {
            Layout.alignment: Qt.AlignHCenter
            Layout.fillWidth: false
            Layout.maximumWidth: parent.width
            spacing: Theme.unit * 2.5

            Symbol {
                name: "sparkles"
                size: Theme.unit * 8
                color: Theme.brand
                endColor: Theme.brandEnd
            }
            Label {
                Layout.fillWidth: true
                text: qsTr("What's New in v%1").arg(view.news.version)
                font: Theme.hero
                wrapMode: Text.Wrap
                maximumLineCount: 3
                Accessible.role: Accessible.Heading
            }
        }
        Page {
            Layout.fillWidth: true
            Layout.fillHeight: true
            margin: 0
            centred: true

            ColumnLayout {
                Layout.fillWidth: true
                spacing: Theme.unit * 3

                Repeater {
                    model: view.news.features

                    WhatsNewRow {
                        required property var modelData

                        symbol: modelData.icon
                        title: modelData.title
                        description: modelData.description
                    }
                }
            }
        }
        PushButton {
            Layout.alignment: Qt.AlignHCenter
            prominent: true
            text: qsTr("Continue")
            onClicked: view.news.dismiss()
        }
    }
}
