// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit

/// The brand's two colours, side by side, for drawings. Text stands on the first one only.
Gradient {
    id: gradient

    /// Whether it begins at the right, as where the reading direction is from right to left.
    property bool backwards: false

    orientation: Gradient.Horizontal

    GradientStop {
        position: gradient.backwards ? 1 : 0
        color: Theme.colors.accent
    }
    GradientStop {
        position: gradient.backwards ? 0 : 1
        color: Theme.colors.accentEnd
    }
}
