// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Pimloft.Kit

/// A tooltip.
T.ToolTip {
    id: hint

    x: parent ? (parent.width - implicitWidth) / 2 : 0
    y: parent ? parent.height + Theme.unit : 0
    implicitWidth: Math.min(implicitContentWidth, Theme.unit * 64) + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    margins: Theme.unit
    horizontalPadding: Theme.unit * 2
    verticalPadding: Theme.unit
    delay: 600
    font: Theme.caption
    closePolicy: T.Popup.NoAutoClose

    contentItem: Text {
        text: hint.text
        font: hint.font
        color: Theme.colors.text
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
    }

    background: Rectangle {
        radius: Theme.controlRadius
        color: Theme.colors.control
        border.width: 1
        border.color: Theme.colors.controlOutline
    }
}
