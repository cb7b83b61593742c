// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit

/// Shows the page that is at an address, with the properties it wants, whatever it is.
Item {
    id: place

    /// With a source and its properties.
    property var page

    onPageChanged: loader.setSource(page.source, page.properties)

    Loader {
        id: loader
        anchors.fill: parent
    }
}
