// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit

/// A row with a name and what it is.
LeadingText {
    id: row

    property alias label: row.text
    property string value

    speaksForText: true
    Accessible.role: Accessible.StaticText
    Accessible.name: qsTr("%1: %2").arg(label).arg(value)

    Label {
        text: row.value
        color: Theme.colors.secondaryText
        silent: true
    }
}
