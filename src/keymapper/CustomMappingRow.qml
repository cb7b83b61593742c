// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit
import Pimloft.KeyMapper

/// One of the user's own rules, and the button that removes it.
Item {
    id: row

    required property int index
    required property string mappingId
    required property int fromKeyCode
    required property int toKeyCode
    signal removed(string id)

    Accessible.role: Accessible.ListItem
    Accessible.name: qsTr("Key %1 → Key %2").arg(fromKeyCode).arg(toKeyCode)

    Divider {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: Layout.leftMargin
        anchors.rightMargin: Layout.rightMargin
        visible: row.index > 0
    }
    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.unit * 4
        anchors.rightMargin: Theme.unit * 3
        spacing: Theme.unit * 3

        KeyCap {
            text: qsTr("Key %1").arg(row.fromKeyCode)
        }
        Symbol {
            name: "arrow.right"
            rotation: LayoutMirroring.enabled ? 180 : 0
            size: Theme.symbolSize * 0.8
            color: Theme.colors.secondaryText
        }
        KeyCap {
            text: qsTr("Key %1").arg(row.toKeyCode)
        }
        Item {
            Layout.fillWidth: true
        }
        SymbolButton {
            symbol: "minus.circle"
            tint: Theme.colors.danger
            text: qsTr("Remove the mapping of key %1").arg(row.fromKeyCode)
            onClicked: row.removed(row.mappingId)
            onActiveFocusChanged: if (activeFocus) row.ListView.view.positionViewAtIndex(row.index, ListView.Contain)
        }
    }
}
