// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>

namespace pimloft {

/// The session's bus, and the one that takes its place when it is restarted. Main thread.
class SessionBus {
public:
    explicit SessionBus(QDBusConnection first);

    const QDBusConnection &connection() const { return connection_; }

    /// True when `connection` is another one now, since the bus has been restarted: what was made with the
    /// one before is cut off for ever. Does not wait for the new bus: a call begins to look for it, and one
    /// of the next finds it there.
    bool renew();

private:
    void look();

    QDBusConnection connection_;
    QDBusConnection next_{QString()};
    const bool wasThere_;
    bool isLooking_ = false;
    QObject context_;  ///< what is under way ends with it
};

}  // namespace pimloft
