// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Pimloft.Kit

/// A row whose text and switch turn something on and off. Setting `checked` from outside turns nothing on;
/// `switched` tells what the user wants.
T.Switch {
    id: row

    signal switched(bool on)

    function flip() {
        toggle();
        switched(checked);
    }

    Layout.fillWidth: true
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Math.max(Theme.rowHeight, implicitContentHeight + topPadding + bottomPadding)
    horizontalPadding: Theme.unit * 4
    verticalPadding: Theme.unit * 2
    font: Theme.body
    onToggled: switched(checked)
    Accessible.role: Accessible.CheckBox
    Accessible.name: text
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onPressAction: flip()
    Accessible.onToggleAction: flip()

    contentItem: Item {
        implicitWidth: label.implicitWidth + row.indicator.implicitWidth + Theme.unit * 4
        implicitHeight: label.implicitHeight

        Label {
            id: label
            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - row.indicator.implicitWidth - Theme.unit * 4
            text: row.text
            wrapMode: Text.Wrap
            maximumLineCount: 3
            silent: true
        }
    }

    indicator: SwitchTrack {
        control: row
        x: row.mirrored ? row.leftPadding : row.width - width - row.rightPadding
        y: (row.height - height) / 2
    }
}
