// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit

/// A line of text that is cut short where the room ends.
Text {
    /// Whether what surrounds it tells a screen reader about it.
    property bool silent: false

    font: Theme.body
    color: Theme.colors.text
    elide: Text.ElideRight
    maximumLineCount: 1
    textFormat: Text.PlainText
    horizontalAlignment: Text.AlignLeft
    verticalAlignment: Text.AlignVCenter
    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.ignored: silent
}
