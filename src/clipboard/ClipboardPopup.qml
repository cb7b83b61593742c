// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Pimloft.Kit
import Pimloft.Clipboard

/// The history in a floating panel. What is typed is looked for; everything else is done with the pointer.
FloatingFrame {
    id: view

    required property PopupModel popup

    title: qsTr("Clipboard history")
    onTouchedOutside: popup.dismiss()
    Keys.onEscapePressed: popup.dismiss()

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 1
        spacing: 0

        SearchField {
            Layout.fillWidth: true
            Layout.margins: Theme.unit * 2.5
            focus: true
            placeholderText: qsTr("Search clipboard history...")
            text: view.popup.searchQuery
            onTextEdited: {
                view.popup.searchQuery = text;
                list.positionViewAtBeginning();
            }
            onCleared: view.popup.searchQuery = ""
        }
        Rectangle {
            Layout.fillWidth: true
            implicitHeight: 1
            color: Theme.colors.separator
        }
        Item {
            Layout.fillWidth: true
            Layout.fillHeight: true

            ListView {
                id: list
                objectName: "entries"
                anchors.fill: parent
                leftMargin: Theme.unit * 1.5
                rightMargin: leftMargin
                topMargin: leftMargin
                bottomMargin: leftMargin
                spacing: 2
                clip: true
                reuseItems: true
                // Rows beyond the edges are not made ahead of time: that work would come before the next frame.
                cacheBuffer: 0
                keyNavigationEnabled: false
                boundsBehavior: Flickable.StopAtBounds
                model: view.popup.entries
                Accessible.role: Accessible.List
                Accessible.name: view.title

                T.ScrollBar.vertical: ScrollBar {}

                delegate: ClipboardItemRow {
                    required property int index
                    required property string itemID

                    width: list.width - list.leftMargin - list.rightMargin
                    // A row that waits to be used again is nothing for a screen reader.
                    ListView.onPooled: visible = false
                    ListView.onReused: visible = true
                    isSelected: itemID === view.popup.selectedID
                    onPicked: view.popup.select(index)
                    onPasted: view.popup.paste(index)
                    onDeleted: view.popup.remove(index)
                    onPinToggled: view.popup.togglePin(index)
                }
            }
            ColumnLayout {
                anchors.centerIn: parent
                spacing: Theme.unit * 2
                visible: list.count === 0

                Symbol {
                    Layout.alignment: Qt.AlignHCenter
                    name: "clipboard"
                    size: Theme.symbolSize * 2
                    color: Theme.colors.secondaryText
                    opacity: 0.7
                }
                Label {
                    Layout.alignment: Qt.AlignHCenter
                    text: view.popup.emptyText
                    color: Theme.colors.secondaryText
                }
            }
        }
        Rectangle {
            Layout.fillWidth: true
            implicitHeight: 1
            color: Theme.colors.separator
        }
        RowLayout {
            Layout.fillWidth: true
            Layout.leftMargin: Theme.unit * 3.5
            Layout.rightMargin: Theme.unit * 2.5
            Layout.topMargin: Theme.unit * 1.5
            Layout.bottomMargin: Theme.unit * 1.5

            Label {
                Layout.fillWidth: true
                text: view.popup.countText
                font: Theme.caption
                color: Theme.colors.secondaryText
            }
            PushButton {
                text: qsTr("Clear All")
                font: Theme.caption
                focusPolicy: Qt.NoFocus
                onClicked: view.popup.clearAll()
            }
        }
    }
}
