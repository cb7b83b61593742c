// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit

/// The brand's mark with a title, and what can be done at its end.
RowLayout {
    id: header

    property string title
    default property alias actions: trailing.data

    spacing: Theme.unit * 2.5

    BrandMark {
        implicitWidth: Theme.controlHeight + Theme.unit
        implicitHeight: implicitWidth
    }
    Label {
        Layout.fillWidth: true
        text: header.title
        font: Theme.title
        Accessible.role: Accessible.Heading
    }
    RowLayout {
        id: trailing
        spacing: Theme.unit
    }
}
