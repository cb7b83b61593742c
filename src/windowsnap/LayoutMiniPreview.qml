// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit
import Pimloft.WindowSnap

/// A small picture of how a layout divides the screen. It shows the screen, so it is never mirrored.
Item {
    id: preview

    /// A rectangle for each slot: parts of the whole, y counted from the bottom upwards.
    property var fractions: []

    Rectangle {
        anchors.fill: parent
        radius: 4
        color: "transparent"
        border.width: 0.5
        border.color: Theme.colors.secondaryText
        opacity: 0.3
    }

    Repeater {
        model: preview.fractions

        Rectangle {
            required property rect modelData

            // The slots count from the bottom, this item from the top.
            x: modelData.x * preview.width + 1
            y: (1 - modelData.y - modelData.height) * preview.height + 1
            width: modelData.width * preview.width - 2
            height: modelData.height * preview.height - 2
            radius: 3
            color: Theme.colors.accentText
            opacity: 0.25
        }
    }
}
