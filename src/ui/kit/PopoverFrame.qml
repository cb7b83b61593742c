// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit

/// A floating panel around a column. Where windows are blended it has round corners and a shadow, which it draws
/// itself within its own size; otherwise it is a plain box.
FocusScope {
    id: frame

    property bool floating: true
    readonly property double shadow: floating ? Theme.unit * 5 : 0
    default property alias content: column.data
    /// A press on the shadow: that is beside the panel for the user.
    signal touchedOutside

    implicitWidth: Theme.unit * 76 + 2 * shadow
    implicitHeight: column.implicitHeight + 2 * column.anchors.margins + 2 * shadow
    focus: true
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onPressedChanged: if (pressed && !ground.contains(frame.mapToItem(ground, point.pressPosition))) frame.touchedOutside()
    }

    PanelShadow {
        anchors.fill: parent
        visible: frame.floating
        extent: frame.shadow
        radius: ground.radius
    }

    Rectangle {
        id: ground
        anchors.fill: parent
        anchors.margins: frame.shadow
        radius: frame.floating ? Theme.cardRadius + Theme.unit : 0
        color: Theme.colors.window
        border.width: 1
        border.color: Theme.colors.outline

        ColumnLayout {
            id: column
            anchors.fill: parent
            anchors.margins: Theme.unit * 3.5
            spacing: Theme.unit * 3
        }
    }
}
