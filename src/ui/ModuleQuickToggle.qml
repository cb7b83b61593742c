// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Pimloft.Kit
import Pimloft.Ui

/// One module's row in the popover: its symbol, which lights up while the module is on, its name, and its switch.
T.Switch {
    id: row

    property string badge
    /// Whether it can unfold something under itself, and whether that is unfolded.
    property bool showDisclosure: false
    property bool unfolded: false
    signal switched(bool on)
    signal disclosed

    function flip() {
        toggle();
        switched(checked);
    }

    Layout.fillWidth: true
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Theme.rowHeight
    horizontalPadding: Theme.unit * 3
    hoverEnabled: true
    font: Theme.body
    onToggled: switched(checked)
    Accessible.role: Accessible.CheckBox
    Accessible.name: checked ? qsTr("%1, enabled").arg(text) : qsTr("%1, disabled").arg(text)
    Accessible.description: badge
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onPressAction: flip()
    Accessible.onToggleAction: flip()

    contentItem: RowLayout {
        spacing: Theme.unit * 2.5

        SymbolDisc {
            symbol: row.icon.name
            lit: row.checked
        }
        Label {
            Layout.fillWidth: true
            Layout.maximumWidth: Math.ceil(implicitWidth)
            text: row.text
            silent: true
        }
        Badge {
            text: row.badge
            visible: row.badge.length > 0
        }
        SymbolButton {
            visible: row.showDisclosure
            symbol: "chevron.down"
            size: Theme.symbolSize * 0.7
            text: row.unfolded ? qsTr("Hide %1").arg(row.text) : qsTr("Show %1").arg(row.text)
            turn: row.unfolded ? 180 : 0
            onClicked: row.disclosed()

            Behavior on turn {
                NumberAnimation {
                    duration: Theme.calm
                    easing.type: Easing.OutCubic
                }
            }
        }
        // The switch stands on the end of this place.
        Item {
            Layout.fillWidth: true
            Layout.minimumWidth: row.indicator.implicitWidth
        }
    }

    indicator: SwitchTrack {
        control: row
        x: row.mirrored ? row.leftPadding : row.width - width - row.rightPadding
        y: (row.height - height) / 2
    }

    background: Rectangle {
        anchors.fill: parent
        anchors.margins: 1
        radius: Theme.cardRadius - 1
        color: row.hovered ? Theme.colors.hovered : "transparent"
    }
}
