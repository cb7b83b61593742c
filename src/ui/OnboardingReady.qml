// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit

/// Tells a new user where to find what has been set up.
Page {
    margin: 0
    centred: true

    Symbol {
        Layout.alignment: Qt.AlignHCenter
        name: "checkmark.circle.fill"
        size: Theme.unit * 20
        color: Theme.colors.success
    }
    ColumnLayout {
        spacing: Theme.unit * 2

        CenteredText {
            text: qsTr("You're All Set!")
            font: Theme.hero
            Accessible.role: Accessible.Heading
        }
        CenteredText {
            text: qsTr("Pimloft lives in your menu bar.\nClick the icon to access all features.")
            color: Theme.colors.secondaryText
        }
    }
    Rectangle {
        Layout.alignment: Qt.AlignHCenter
        Layout.maximumWidth: parent.width
        implicitWidth: hint.implicitWidth + Theme.unit * 8
        implicitHeight: hint.implicitHeight + Theme.unit * 5
        radius: Theme.cardRadius
        color: Theme.colors.accentSoft

        RowLayout {
            id: hint
            anchors.fill: parent
            anchors.leftMargin: Theme.unit * 4
            anchors.rightMargin: Theme.unit * 4
            spacing: Theme.unit * 2.5

            Symbol {
                name: "square.on.square"
                size: Theme.symbolSize
                color: Theme.colors.accentText
            }
            Label {
                Layout.fillWidth: true
                text: qsTr("Look for this icon in your menu bar")
                font: Theme.callout
                color: Theme.colors.accentText
                wrapMode: Text.Wrap
                maximumLineCount: 4
            }
        }
    }
}
