// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Pimloft.Kit

/// A row whose text and switch turn something on and off, with room for a symbol and for what it does. Setting
/// `checked` from outside turns nothing on; `switched` tells what the user wants.
T.Switch {
    id: row

    property string symbol
    property string description
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
    Accessible.description: description
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onPressAction: flip()
    Accessible.onToggleAction: flip()

    contentItem: RowLayout {
        spacing: Theme.unit * 3

        Item {
            implicitWidth: 24
            implicitHeight: mark.height
            visible: row.symbol.length > 0

            Symbol {
                id: mark
                anchors.centerIn: parent
                name: row.symbol
                size: Theme.symbolSize
                color: Theme.colors.accentText
            }
        }
        ColumnLayout {
            Layout.fillHeight: false
            spacing: Theme.unit / 2

            Label {
                Layout.fillWidth: true
                text: row.text
                wrapMode: Text.Wrap
                maximumLineCount: 3
                silent: true
            }
            Label {
                Layout.fillWidth: true
                text: row.description
                visible: row.description.length > 0
                font: Theme.caption
                color: Theme.colors.secondaryText
                wrapMode: Text.Wrap
                maximumLineCount: 4
                silent: true
            }
        }
        // The switch stands on the end of this place.
        Item {
            implicitWidth: row.indicator.implicitWidth
        }
    }

    indicator: SwitchTrack {
        control: row
        x: row.mirrored ? row.leftPadding : row.width - width - row.rightPadding
        y: (row.height - height) / 2
    }
}
