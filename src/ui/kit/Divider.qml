// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit

/// The hairline between two rows of a section.
Rectangle {
    Layout.fillWidth: true
    Layout.leftMargin: Theme.unit * 4
    Layout.rightMargin: Theme.unit * 4
    implicitHeight: 1
    color: Theme.colors.separator
    Accessible.ignored: true
}
