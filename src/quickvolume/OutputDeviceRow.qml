// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Pimloft.Kit
import Pimloft.QuickVolume

/// An output device that can be chosen. `picked` tells that it was; what is chosen then is `isDefault` only.
T.RadioButton {
    id: row

    property string name
    property bool isDefault: false
    signal picked

    function pick() {
        // A press checks the button by itself, also where the sound server does not follow.
        checked = Qt.binding(() => isDefault);
        picked();
    }

    checked: isDefault
    autoExclusive: false

    Layout.fillWidth: true
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Theme.controlHeight + Theme.unit
    horizontalPadding: Theme.unit * 3
    hoverEnabled: true
    onClicked: pick()
    Accessible.name: name
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onPressAction: pick()
    Accessible.onToggleAction: pick()
    Keys.onReturnPressed: pick()
    Keys.onEnterPressed: pick()

    contentItem: RowLayout {
        spacing: Theme.unit * 2.5

        Item {
            implicitWidth: Theme.controlHeight
            implicitHeight: Theme.symbolSize

            Symbol {
                anchors.centerIn: parent
                name: row.isDefault ? "checkmark.circle.fill" : "circle"
                size: Theme.symbolSize
                color: row.isDefault ? Theme.colors.accentText : Theme.colors.secondaryText
            }
        }
        Label {
            Layout.fillWidth: true
            text: row.name
            font: Theme.callout
            silent: true
        }
    }

    background: Item {
        Rectangle {
            anchors.fill: parent
            anchors.leftMargin: Theme.unit
            anchors.rightMargin: Theme.unit
            radius: Theme.controlRadius
            color: row.down ? Theme.colors.controlPressed : row.hovered ? Theme.colors.hovered : "transparent"

            FocusRing {
                anchors.margins: 0
                visible: row.visualFocus
                radius: Theme.controlRadius
            }
        }
    }
}
