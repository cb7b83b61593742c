// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit

/// Tells a new user what this is.
Page {
    margin: 0
    centred: true

    Symbol {
        Layout.alignment: Qt.AlignHCenter
        name: "square.on.square"
        size: Theme.unit * 28
        color: Theme.brand
        endColor: Theme.brandEnd
    }
    ColumnLayout {
        spacing: Theme.unit * 2

        CenteredText {
            text: qsTr("Welcome to Pimloft")
            font: Theme.hero
            Accessible.role: Accessible.Heading
        }
        CenteredText {
            text: qsTr("Everything you miss from Windows, in one app.")
            color: Theme.colors.secondaryText
        }
    }
}
