// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit

/// What a row unfolds under itself: a page, whatever it is, that exists while it is unfolded.
Item {
    id: place

    /// With a source and its properties.
    property var page
    property bool unfolded: false

    implicitHeight: unfolded && loader.item ? loader.item.implicitHeight : 0
    implicitWidth: loader.item ? loader.item.implicitWidth : 0
    visible: unfolded
    clip: appearing.running
    onUnfoldedChanged: loader.setSource(unfolded ? page.source : "", unfolded ? page.properties : {})

    Loader {
        id: loader
        width: parent.width
        height: parent.height
        onLoaded: appearing.restart()
    }

    ParallelAnimation {
        id: appearing

        NumberAnimation {
            target: loader
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.calm
        }
        NumberAnimation {
            target: loader
            property: "y"
            from: -Theme.unit * 3
            to: 0
            duration: Theme.calm
            easing.type: Easing.OutCubic
        }
    }
}
