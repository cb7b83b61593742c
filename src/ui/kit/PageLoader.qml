// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit

/// Shows the page that is at an address, with the properties it wants, whatever it is. A page is made a little at
/// a time, so that nothing has to wait for it, and the one before stays until it is there.
Item {
    id: place
    objectName: "page"

    /// With a source and its properties.
    property var page
    /// Whether it is this page that is shown already.
    property bool isMade: false

    onPageChanged: pages.begin(page)

    QtObject {
        id: pages

        property Loader shown: first
        // The types of the pages: they would go with each page, and have to be read again.
        readonly property var types: ({})

        function begin(page) {
            place.isMade = false;
            if (!types[page.source])
                types[page.source] = Qt.createComponent(page.source);
            const next = shown === first ? second : first;
            next.setSource(page.source, page.properties);
        }

        function show(next) {
            const before = shown;
            const hadKeyboard = before.activeFocus;
            shown = next;
            // As if it were the same place all the time.
            if (hadKeyboard)
                next.forceActiveFocus();
            before.source = "";
            place.isMade = true;
        }
    }
    Loader {
        id: first
        anchors.fill: parent
        asynchronous: true
        visible: pages.shown === first
        onStatusChanged: if (status === Loader.Ready || status === Loader.Error) pages.show(first)
    }
    Loader {
        id: second
        anchors.fill: parent
        asynchronous: true
        visible: pages.shown === second
        onStatusChanged: if (status === Loader.Ready || status === Loader.Error) pages.show(second)
    }
}
