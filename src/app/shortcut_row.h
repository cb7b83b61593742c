// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

namespace pimloft {

/// One line of a page's list of shortcuts. A value; any thread.
struct ShortcutRow {
    Q_GADGET
    Q_PROPERTY(QString keys MEMBER keys)
    Q_PROPERTY(QString action MEMBER action)
    Q_PROPERTY(bool refused MEMBER refused)
    Q_PROPERTY(QString toolTip MEMBER toolTip)

public:
    QString keys;
    QString action;
    bool refused = false;  ///< another program owns the combination, or one of them
    QString toolTip;       ///< says so; empty otherwise
};

}  // namespace pimloft
