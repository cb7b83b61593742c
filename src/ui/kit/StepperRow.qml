// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit

/// A row with a number in words and what makes it smaller and larger. `moved` tells what the user picked.
LeadingText {
    id: row

    property alias from: stepper.from
    property alias to: stepper.to
    property alias stepSize: stepper.stepSize
    property alias value: stepper.value
    signal moved(int value)

    speaksForText: true

    Stepper {
        id: stepper
        onValueModified: row.moved(value)
        Accessible.role: Accessible.SpinBox
        Accessible.name: row.text
        Accessible.onIncreaseAction: if (value < to) {
            increase();
            row.moved(value);
        }
        Accessible.onDecreaseAction: if (value > from) {
            decrease();
            row.moved(value);
        }
    }
}
