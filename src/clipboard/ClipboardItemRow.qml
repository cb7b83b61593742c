// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit
import Pimloft.Clipboard

/// One entry of the history: what it holds, where it comes from and what can be done with it.
Rectangle {
    id: row

    required property string preview
    required property string symbol
    required property var fileIcon
    required property bool isImage
    required property var thumbnail
    required property string sourceApp
    required property string time
    required property string characters
    required property bool isPinned
    property bool isSelected: false
    readonly property bool isHovered: pointer.hovered
    // Formatted text mostly begins with lines that are blank once its tags are gone, and two lines are all there is.
    readonly property string words: preview.replace(/^\s*\n/, "")
    signal picked
    signal pasted
    signal deleted
    signal pinToggled

    implicitHeight: content.implicitHeight + Theme.unit * 3
    radius: 6
    color: isSelected ? Qt.alpha(Theme.colors.accent, 0.15) : isHovered ? Qt.alpha(Theme.colors.secondaryText, 0.08) : "transparent"
    border.width: isSelected && Theme.isHighContrast ? 2 : 0
    border.color: Theme.colors.accent
    Accessible.role: Accessible.ListItem
    Accessible.name: words
    Accessible.description: [sourceApp, time, characters].filter(part => part).join(", ")
    Accessible.selectable: true
    Accessible.selected: isSelected
    Accessible.onPressAction: picked()

    HoverHandler {
        id: pointer
    }
    TapHandler {
        onSingleTapped: row.picked()
        onDoubleTapped: row.pasted()
    }

    RowLayout {
        id: content
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: Theme.unit * 1.5
        anchors.rightMargin: Theme.unit * 1.5
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.unit * 2

        Item {
            Layout.preferredWidth: 24
            Layout.preferredHeight: 24
            Layout.alignment: Qt.AlignVCenter

            Symbol {
                anchors.centerIn: parent
                name: row.symbol
                size: Theme.symbolSize
                color: Theme.colors.secondaryText
                visible: row.symbol.length > 0
            }
            Loader {
                anchors.fill: parent
                active: row.symbol.length === 0
                sourceComponent: IconItem {
                    icon: row.fileIcon
                }
            }
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: Theme.unit

            // What a row does not show it does not have: the popup is to be there at once.
            Loader {
                active: row.isImage
                visible: active
                sourceComponent: Rectangle {
                    implicitWidth: picture.implicitWidth || 72
                    implicitHeight: 48
                    radius: 6
                    color: picture.implicitWidth > 0 ? "transparent" : Theme.colors.unlit
                    border.width: 1
                    border.color: Theme.colors.outline

                    Picture {
                        id: picture
                        anchors.fill: parent
                        image: row.thumbnail
                        radius: parent.radius
                    }
                }
            }
            Loader {
                Layout.fillWidth: true
                active: !row.isImage
                visible: active
                sourceComponent: Label {
                    text: row.words
                    font: Theme.callout
                    wrapMode: Text.Wrap
                    maximumLineCount: 2
                    silent: true
                }
            }
            RowLayout {
                Layout.fillWidth: true
                spacing: Theme.unit * 1.25

                Label {
                    Layout.fillWidth: true
                    Layout.maximumWidth: Math.ceil(implicitWidth)
                    text: row.sourceApp
                    font: Theme.caption
                    color: Theme.colors.secondaryText
                    silent: true
                }
                Label {
                    Layout.fillWidth: true
                    text: [row.time, row.characters].filter(part => part).map(part => "·  " + part).join("  ")
                    font: Theme.caption
                    color: Theme.colors.secondaryText
                    silent: true
                }
            }
        }
        Loader {
            active: row.isPinned
            visible: active
            sourceComponent: Symbol {
                name: "pin.fill"
                size: Math.round(Theme.symbolSize * 0.78)
                color: Theme.colors.pinned
            }
        }
        Loader {
            active: row.isHovered
            visible: active
            sourceComponent: RowLayout {
                spacing: 0

                SymbolButton {
                    symbol: "pin.fill"
                    size: Math.round(Theme.symbolSize * 0.78)
                    text: row.isPinned ? qsTr("Unpin") : qsTr("Pin")
                    focusPolicy: Qt.NoFocus
                    onClicked: row.pinToggled()
                }
                SymbolButton {
                    symbol: "trash"
                    size: Math.round(Theme.symbolSize * 0.78)
                    text: qsTr("Delete")
                    focusPolicy: Qt.NoFocus
                    onClicked: row.deleted()
                }
            }
        }
    }
}
