// SPDX-License-Identifier: MIT
import QtQuick
import Pimloft.Kit

/// A row that tells how something stands, with room for what can be done about it.
LeadingText {
    id: row

    enum Kind {
        Good,
        Warning
    }

    property int kind: StatusRow.Good

    symbolColor: kind === StatusRow.Good ? Theme.colors.success : Theme.colors.warning
}
