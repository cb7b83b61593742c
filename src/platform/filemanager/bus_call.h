// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

#include <functional>

class QObject;

namespace pimloft {

/// A method of an object on the bus. A value.
struct BusMethod {
    QString service, path, interface, method;
    bool mayStart = false;  ///< its service, where that does not run
};

/// Calls it. `done` is called once, from the event loop, with a reply or an error;
/// not after `context` is gone.
void callBus(const QDBusConnection &bus, const BusMethod &method, const QVariantList &arguments,
             QObject *context, std::function<void(const QDBusMessage &)> done);

}  // namespace pimloft
