// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit
import Pimloft.QuickVolume

/// A kind of application and what the mixer can do for it.
LeadingText {
    id: row

    property alias name: row.text
    property string feature

    textFont: Theme.callout
    speaksForText: true
    Accessible.role: Accessible.StaticText
    Accessible.name: qsTr("%1: %2").arg(name).arg(feature)

    Label {
        text: row.feature
        font: Theme.caption
        color: Theme.colors.secondaryText
        silent: true
    }
}
