// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit

/// A text in the middle of a page, in as many lines as it needs.
Label {
    Layout.fillWidth: true
    horizontalAlignment: Text.AlignHCenter
    wrapMode: Text.Wrap
    maximumLineCount: 20
    elide: Text.ElideNone
    lineHeight: 1.15
}
