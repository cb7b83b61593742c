// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit

/// The place of one step of the first run, which fades in and out as the steps change.
Item {
    id: place

    property bool shown: false

    anchors.fill: parent
    opacity: shown ? 1 : 0
    visible: shown || opacity > 0
    enabled: shown

    Behavior on opacity {
        NumberAnimation {
            duration: Theme.calm
        }
    }
}
