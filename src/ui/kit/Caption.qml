// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts

/// What explains the row above it.
Label {
    Layout.fillWidth: true
    leftPadding: Theme.unit * 4
    rightPadding: Theme.unit * 4
    topPadding: Theme.unit
    bottomPadding: Theme.unit * 3
    font: Theme.caption
    color: Theme.colors.secondaryText
    wrapMode: Text.Wrap
    maximumLineCount: 1000
    elide: Text.ElideNone
    lineHeight: 1.15
}
