// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Pimloft.Kit

/// A page of sections that scrolls where the window is too small for it, also to whatever gets the keyboard.
Flickable {
    id: page

    default property alias sections: column.data
    property double margin: Theme.unit * 6
    /// Whether it stands in the middle of the room that it leaves.
    property bool centred: false
    readonly property Item focusItem: Window.activeFocusItem

    function reveal(item) {
        const top = item.mapToItem(column, 0, 0).y;
        const bottom = top + item.height + 2 * margin;
        contentY = Math.max(0, Math.min(top, Math.max(contentY, bottom - height)));
    }

    contentWidth: width
    contentHeight: column.implicitHeight + 2 * margin
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    onFocusItemChanged: if (focusItem && contentHeight > height && contains.holds(focusItem)) reveal(focusItem)

    QtObject {
        id: contains
        function holds(item) {
            let each = item;
            while (each && each !== column)
                each = each.parent;
            return each === column;
        }
    }

    T.ScrollBar.vertical: ScrollBar {}

    ColumnLayout {
        id: column
        x: (page.width - width) / 2
        y: page.centred ? Math.max(page.margin, (page.height - implicitHeight) / 2) : page.margin
        width: Math.min(page.width - 2 * page.margin, Theme.pageWidth)
        spacing: Theme.unit * 6
    }
}
