// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Pimloft.Kit

/// Tells how far a page is scrolled, while there is more than is seen.
T.ScrollBar {
    id: bar

    implicitWidth: Theme.unit * 2.5
    padding: 2
    minimumSize: 0.1
    visible: policy !== T.ScrollBar.AlwaysOff && size < 1
    Accessible.ignored: true

    contentItem: Rectangle {
        implicitWidth: Theme.unit * 1.5
        radius: width / 2
        color: Theme.colors.secondaryText
        opacity: bar.pressed ? 0.7 : bar.hovered ? 0.55 : 0.3
    }
}
