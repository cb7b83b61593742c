// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit

/// A row with a key combination and what it does. `problem` says why it does not work, if so.
RowLayout {
    id: row

    property string keys
    property string action
    property string problem
    /// Whether it is written in small text.
    property alias small: cap.small
    property double keysWidth: Theme.unit * 24

    Layout.fillWidth: true
    Layout.leftMargin: Theme.unit * 4
    Layout.rightMargin: Theme.unit * 4
    Layout.minimumHeight: Theme.rowHeight
    spacing: Theme.unit * 3
    Accessible.role: Accessible.ListItem
    Accessible.name: qsTr("%1: %2").arg(keys).arg(action)
    Accessible.description: problem

    Item {
        Layout.preferredWidth: Math.max(row.keysWidth, cap.implicitWidth)
        implicitHeight: cap.implicitHeight

        KeyCap {
            id: cap
            anchors.left: parent.left
            text: row.keys
            opacity: row.problem ? 0.55 : 1
        }
    }
    Label {
        Layout.fillWidth: true
        text: row.action
        font: row.small ? Theme.caption : Theme.body
        wrapMode: Text.Wrap
        maximumLineCount: 4
        silent: true
    }
    Symbol {
        name: "exclamationmark.triangle"
        size: Theme.symbolSize
        color: Theme.colors.warning
        visible: row.problem.length > 0
    }

    HoverHandler {
        id: pointer
    }
    Hint {
        text: row.problem
        wanted: row.problem.length > 0 && pointer.hovered
    }
}
