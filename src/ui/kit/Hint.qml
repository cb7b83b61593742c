// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Pimloft.Kit

/// A tooltip. It comes when it has been wanted for a moment, and goes when it is wanted no more.
T.ToolTip {
    id: hint

    property bool wanted: false
    // The delay that tooltips have themselves also ends on a page that is already being taken away, where there is
    // no window to open in.
    readonly property Timer patience: Timer {
        interval: 600
        running: hint.wanted
        onTriggered: if (hint.parent && hint.parent.Window.window) hint.open()
    }

    x: parent ? (parent.width - implicitWidth) / 2 : 0
    y: parent ? parent.height + Theme.unit : 0
    implicitWidth: Math.min(implicitContentWidth, Theme.unit * 64) + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    margins: Theme.unit
    horizontalPadding: Theme.unit * 2
    verticalPadding: Theme.unit
    font: Theme.caption
    closePolicy: T.Popup.NoAutoClose
    onWantedChanged: if (!wanted) close()

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
