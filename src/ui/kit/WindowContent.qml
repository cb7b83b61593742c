// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit

/// The ground that everything in a window stands on, in the reading direction of the user's language.
Rectangle {
    focus: true
    color: Theme.colors.window
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true
}
