// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Pimloft.Kit

/// The list of a window's pages. The arrow keys go through it.
T.Control {
    id: sidebar

    /// Each with a title and a symbol.
    property var tabs: []
    property int selected: 0
    signal picked(int index)

    implicitWidth: Math.max(Theme.unit * 48, implicitContentWidth + leftPadding + rightPadding)
    padding: Theme.unit * 3
    focusPolicy: Qt.StrongFocus
    Accessible.role: Accessible.PageTabList
    Accessible.name: qsTr("Pages")

    Keys.onUpPressed: picked(Math.max(0, selected - 1))
    Keys.onDownPressed: picked(Math.min(tabs.length - 1, selected + 1))
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End;
        if (event.accepted)
            picked(event.key === Qt.Key_Home ? 0 : tabs.length - 1);
    }

    background: Rectangle {
        color: Theme.colors.sidebar

        Rectangle {
            anchors.right: parent.right
            width: 1
            height: parent.height
            color: Theme.colors.outline
        }
    }

    contentItem: ColumnLayout {
        spacing: 2

        Repeater {
            model: sidebar.tabs

            SidebarItem {
                required property int index
                required property var modelData

                text: modelData.title
                symbol: modelData.symbol
                selected: index === sidebar.selected
                focused: selected && sidebar.visualFocus
                onClicked: sidebar.picked(index)
            }
        }
        Item {
            Layout.fillHeight: true
        }
    }
}
