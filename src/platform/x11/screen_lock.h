// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QVariantMap>

namespace pimloft {

/// Hears of the screen being locked and unlocked, from the screen saver or the login manager. Silent where
/// neither is to be had. Main thread.
class ScreenLock : public QObject {
    Q_OBJECT

public:
    ScreenLock();

    /// Whether who told last of a lock also tells of its end. The login manager only passes on the wish for
    /// one.
    bool tellsOfEnd() const { return tellsOfEnd_; }

signals:
    /// The screen is locked, or about to be.
    void locked();
    void unlocked();

private slots:
    void lockWanted();
    void screenSaverChanged(bool active);
    void sessionChanged(const QString &interface, const QVariantMap &changed);

private:
    bool tellsOfEnd_ = false;
};

}  // namespace pimloft
