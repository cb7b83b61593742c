// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Pimloft.Kit

/// A slider over 0 to 1 for a level that others change, too. While it is held it follows the hand only.
Slider {
    id: slider

    property double level: 0

    from: 0
    to: 1
    stepSize: 0.05
    snapMode: T.Slider.NoSnap

    Binding {
        target: slider
        property: "value"
        value: slider.level
        when: !slider.pressed
        restoreMode: Binding.RestoreNone
    }
}
