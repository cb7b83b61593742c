// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Pimloft.Kit

/// A line of text to be typed. Setting `text` from outside types nothing; `textEdited` tells what the user did.
T.TextField {
    id: field

    implicitWidth: Theme.unit * 40
    implicitHeight: Theme.controlHeight
    leftPadding: Theme.unit * 2
    rightPadding: Theme.unit * 2
    verticalAlignment: Text.AlignVCenter
    font: Theme.body
    color: Theme.colors.text
    selectionColor: Theme.colors.accent
    selectedTextColor: Theme.colors.onAccent
    placeholderTextColor: Theme.colors.secondaryText
    selectByMouse: true
    opacity: enabled ? 1 : 0.5
    Accessible.role: Accessible.EditableText
    Accessible.name: placeholderText

    Label {
        x: field.leftPadding
        width: field.width - field.leftPadding - field.rightPadding
        height: field.height
        text: field.placeholderText
        font: field.font
        color: field.placeholderTextColor
        visible: field.length === 0 && field.preeditText.length === 0
        silent: true
    }

    background: Rectangle {
        radius: Theme.controlRadius
        color: Theme.colors.control
        border.width: 1
        border.color: Theme.colors.controlOutline

        FocusRing {
            visible: field.activeFocus
        }
    }
}
