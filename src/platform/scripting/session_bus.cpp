// SPDX-License-Identifier: MIT
#include "platform/scripting/session_bus.h"

#include "platform/background.h"

#include <utility>

namespace pimloft {

namespace {
const QString name = QStringLiteral("pimloft's second");
}  // namespace

SessionBus::SessionBus(QDBusConnection first)
    : connection_(std::move(first)), wasThere_(connection_.isConnected()) {
}

bool SessionBus::renew() {
    // Looking for one where there never was one would start it.
    if (!wasThere_ || connection_.isConnected())
        return false;
    if (!next_.isConnected()) {
        look();
        return false;
    }
    connection_ = std::exchange(next_, QDBusConnection(QString()));
    return true;
}

void SessionBus::look() {
    if (std::exchange(isLooking_, true))
        return;
    // Making a connection waits for the bus.
    inBackground(
        &context_,
        [] {
            QDBusConnection::disconnectFromBus(name);
            return QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
        },
        [this](const QDBusConnection &bus) {
            isLooking_ = false;
            next_ = bus;
        });
}

}  // namespace pimloft
