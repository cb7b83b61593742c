// SPDX-License-Identifier: MIT
#include "platform/instance/instance_on_bus.h"

#include "platform/instance/local_instance.h"

#include <QDBusMessage>
#include <QDBusPendingCall>

namespace pimloft {

namespace {

const QString name = QStringLiteral("app.pimloft.Pimloft");
const QString path = QStringLiteral("/app/pimloft/Pimloft");

QDBusMessage callOfTheBus(const QString &method) {
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                          QStringLiteral("/org/freedesktop/DBus"),
                                          QStringLiteral("org.freedesktop.DBus"), method);
}

QString run(const Instance &instance, InstanceCommand command) {
    return instance.onCommand ? instance.onCommand(command) : QString();
}

}  // namespace

InstanceOnBus::InstanceOnBus(Instance &instance, QDBusConnection bus)
    : instance_(instance), bus_(std::move(bus)) {
    if (!bus_.isConnected())
        return;
    bus_.registerObject(path, this, QDBusConnection::ExportAllSlots);
    // Not registerService(), which waits for the bus.
    constexpr uint doNotQueue = 4;
    bus_.asyncCall(callOfTheBus(QStringLiteral("RequestName")) << name << doNotQueue);
}

InstanceOnBus::~InstanceOnBus() {
    if (!bus_.isConnected())
        return;
    bus_.unregisterObject(path);
    bus_.asyncCall(callOfTheBus(QStringLiteral("ReleaseName")) << name);
}

void InstanceOnBus::OpenPopover() {
    run(instance_, InstanceCommand::openPopover);
}

void InstanceOnBus::OpenSettings() {
    run(instance_, InstanceCommand::openSettings);
}

void InstanceOnBus::Quit() {
    run(instance_, InstanceCommand::quit);
}

QString InstanceOnBus::Doctor() {
    return run(instance_, InstanceCommand::doctor);
}

void publish(LocalInstance &instance, const QDBusConnection &bus) {
    (new InstanceOnBus(instance, bus))->setParent(&instance);
}

}  // namespace pimloft
