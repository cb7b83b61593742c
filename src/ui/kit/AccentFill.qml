// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit

/// An area in the brand's two colours, side by side, for drawings. Text stands on the first one only.
GradientFill {
    /// Whether the first one is at the right, as where the reading direction is from right to left.
    property bool backwards: false

    leftColor: backwards ? Theme.colors.accentEnd : Theme.colors.accent
    rightColor: backwards ? Theme.colors.accent : Theme.colors.accentEnd
}
