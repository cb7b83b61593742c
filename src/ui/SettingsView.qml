// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit
import Pimloft.Ui

WindowContent {
    id: view

    required property SettingsWindow window

    implicitWidth: sidebar.implicitWidth + Theme.unit * 112
    implicitHeight: Theme.unit * 80

    Keys.onPressed: event => event.accepted = keys.handled(event)

    QtObject {
        id: keys

        function handled(event) {
            const forward = event.key === Qt.Key_Tab || event.key === Qt.Key_PageDown;
            const backward = event.key === Qt.Key_Backtab || event.key === Qt.Key_PageUp;
            if (!(event.modifiers & Qt.ControlModifier) || !(forward || backward))
                return false;
            if (forward)
                view.window.selectNext();
            else
                view.window.selectPrevious();
            return true;
        }
    }

    RowLayout {
        anchors.fill: parent
        spacing: 0

        Sidebar {
            id: sidebar
            Layout.fillHeight: true
            tabs: view.window.tabs
            selected: view.window.selectedTab
            onPicked: index => view.window.select(index)
        }
        PageLoader {
            Layout.fillWidth: true
            Layout.fillHeight: true
            page: view.window.tabs[view.window.selectedTab]
        }
    }
}
