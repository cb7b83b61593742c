// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace pimloft {

/// Hears of the screen being locked, from the screen saver or the login manager. Silent where neither is to
/// be had. Main thread.
class ScreenLock : public QObject {
    Q_OBJECT

public:
    ScreenLock();

signals:
    /// The screen is locked, or about to be.
    void locked();

private slots:
    void screenSaverChanged(bool active);
};

}  // namespace pimloft
