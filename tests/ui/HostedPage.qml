// SPDX-License-Identifier: MIT
import QtQuick

Rectangle {
    required property QtObject model

    implicitWidth: 120
    implicitHeight: 90
    focus: true
    Component.onCompleted: model.shown = model.shown + 1
}
