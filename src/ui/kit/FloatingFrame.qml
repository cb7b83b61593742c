// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit

/// The ground of a floating panel. With a shadow it has round corners, and draws the shadow within its own size;
/// where windows are not blended it has none and is a plain box.
FocusScope {
    id: frame

    /// What a screen reader calls the panel.
    property string title
    property double shadow: 0
    readonly property double groundRadius: shadow > 0 ? Theme.cardRadius + Theme.unit : 0
    default property alias content: ground.data
    /// A press on the shadow: that is beside the panel for the user.
    signal touchedOutside

    focus: true
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    Binding {
        target: frame.Window.window
        property: "title"
        value: frame.title
        when: frame.Window.window !== null
        restoreMode: Binding.RestoreNone
    }

    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onPressedChanged: if (pressed && !ground.contains(frame.mapToItem(ground, point.pressPosition))) frame.touchedOutside()
    }

    PanelShadow {
        anchors.fill: parent
        visible: frame.shadow > 0
        extent: frame.shadow
        radius: frame.groundRadius
    }

    Rectangle {
        id: ground
        anchors.fill: parent
        anchors.margins: frame.shadow
        radius: frame.groundRadius
        color: Theme.colors.window
        border.width: 1
        border.color: Theme.colors.outline
    }
}
