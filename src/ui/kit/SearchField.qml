// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit

/// A text to look for, with a button that empties it. `cleared` tells that this was asked for.
TextField {
    id: field

    signal cleared

    readonly property bool mirrored: LayoutMirroring.enabled
    readonly property double leadingPadding: Theme.unit * 4 + Theme.symbolSize
    readonly property double trailingPadding: clear.visible ? Theme.unit * 2 + Theme.symbolSize * 1.5 : Theme.unit * 2

    leftPadding: mirrored ? trailingPadding : leadingPadding
    rightPadding: mirrored ? leadingPadding : trailingPadding

    Symbol {
        anchors.left: parent.left
        anchors.leftMargin: Theme.unit * 2
        anchors.verticalCenter: parent.verticalCenter
        name: "magnifyingglass"
        size: Theme.symbolSize
        color: Theme.colors.secondaryText
    }
    SymbolButton {
        id: clear
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        symbol: "xmark.circle.fill"
        text: qsTr("Clear search")
        visible: field.length > 0
        plain: true
        focusPolicy: Qt.NoFocus
        onClicked: field.cleared()
    }
}
