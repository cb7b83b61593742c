// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit

/// What explains the row above it.
Label {
    /// Whether there is no row above it in its section.
    property bool alone: false

    Layout.fillWidth: true
    leftPadding: Theme.unit * 4
    rightPadding: Theme.unit * 4
    topPadding: alone ? bottomPadding : 0
    bottomPadding: Theme.unit * 3
    font: Theme.caption
    color: Theme.colors.secondaryText
    wrapMode: Text.Wrap
    maximumLineCount: 1000
    elide: Text.ElideNone
    lineHeight: 1.15
}
