// SPDX-License-Identifier: MIT
import QtQuick

/// Shows the page at an address with the properties it wants, whatever it is.
Item {
    id: place

    property url source
    property var properties: ({})

    onSourceChanged: loader.setSource(source, properties)

    Loader {
        id: loader
        anchors.fill: parent
    }
}
