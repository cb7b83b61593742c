// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit

/// The list of a window's pages. The arrow keys go through it.
Rectangle {
    id: sidebar

    /// Each with a title and a symbol.
    property var tabs: []
    property int selected: 0
    signal picked(int index)

    function pickedByKey(key) {
        const last = tabs.length - 1;
        const steps = {
            [Qt.Key_Up]: Math.max(0, selected - 1),
            [Qt.Key_Down]: Math.min(last, selected + 1),
            [Qt.Key_Home]: 0,
            [Qt.Key_End]: last
        };
        if (steps[key] === undefined)
            return false;
        picked(steps[key]);
        return true;
    }

    implicitWidth: Math.max(Theme.unit * 48, list.implicitWidth + Theme.unit * 6)
    color: Theme.colors.sidebar
    activeFocusOnTab: true
    Accessible.role: Accessible.PageTabList
    Accessible.name: qsTr("Pages")
    Keys.onPressed: event => event.accepted = pickedByKey(event.key)

    Rectangle {
        anchors.right: parent.right
        width: 1
        height: parent.height
        color: Theme.colors.outline
    }

    ColumnLayout {
        id: list
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: Theme.unit * 3
        spacing: Theme.unit / 2

        Repeater {
            model: sidebar.tabs

            SidebarItem {
                id: item

                required property int index
                required property var modelData

                text: modelData.title
                symbol: modelData.symbol
                selected: item.index === sidebar.selected
                focused: item.selected && sidebar.activeFocus
                onClicked: sidebar.picked(item.index)
            }
        }
    }
}
