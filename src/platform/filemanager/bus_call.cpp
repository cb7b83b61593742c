// SPDX-License-Identifier: MIT
#include "platform/filemanager/bus_call.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace pimloft {

namespace {

/// Nobody waits longer for an answer, in milliseconds.
constexpr int timeout = 1000;

}  // namespace

void callBus(const QDBusConnection &bus, const BusMethod &method, const QVariantList &arguments,
             QObject *context, std::function<void(const QDBusMessage &)> done) {
    QDBusMessage message =
        QDBusMessage::createMethodCall(method.service, method.path, method.interface, method.method);
    message.setArguments(arguments);
    message.setAutoStartService(method.mayStart);
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(message, timeout), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context, [watcher, done = std::move(done)] {
        watcher->deleteLater();
        done(watcher->reply());
    });
}

}  // namespace pimloft
