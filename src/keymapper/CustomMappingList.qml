// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Pimloft.Kit
import Pimloft.KeyMapper

/// The user's own rules. A long list scrolls in itself, so that thousands of rules are a few rows of work.
ListView {
    id: list

    required property KeyMapperModel settings

    Layout.fillWidth: true
    Layout.preferredHeight: Theme.rowHeight * Math.min(count, 8)
    model: settings.customMappings
    interactive: contentHeight > height
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    Accessible.role: Accessible.List
    T.ScrollBar.vertical: ScrollBar {}

    delegate: CustomMappingRow {
        width: list.width
        height: Theme.rowHeight
        onRemoved: id => list.settings.removeCustomMapping(id)
    }
}
