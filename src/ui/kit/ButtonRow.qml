// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit

/// A row with a text and a button at its end.
LeadingText {
    id: row

    property alias buttonText: button.text
    property alias prominent: button.prominent
    signal clicked

    PushButton {
        id: button
        onClicked: row.clicked()
    }
}
