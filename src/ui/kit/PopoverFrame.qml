// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit

/// A floating panel around a column.
FloatingFrame {
    id: frame

    property bool floating: true
    default property alias rows: column.data

    shadow: floating ? Theme.unit * 5 : 0
    implicitWidth: Theme.unit * 76 + 2 * shadow
    implicitHeight: column.implicitHeight + 2 * column.anchors.margins + 2 * shadow

    ColumnLayout {
        id: column
        anchors.fill: parent
        anchors.margins: Theme.unit * 3.5
        spacing: Theme.unit * 3
    }
}
