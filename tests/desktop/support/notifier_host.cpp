// SPDX-License-Identifier: MIT
#include "desktop/support/notifier_host.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVariant>

namespace pimloft::test {

namespace {

const QString watcherName = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");
const QString itemPath = QStringLiteral("/StatusNotifierItem");
const QString itemInterface = QStringLiteral("org.kde.StatusNotifierItem");

}  // namespace

NotifierHost::NotifierHost(const DesktopSession &session)
    : connectionName_(QStringLiteral("notifier host of ") + session.home()),
      bus_(QDBusConnection::connectToBus(
          session.environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")), connectionName_)) {
    constexpr auto exported = QDBusConnection::ExportScriptableSlots |
                              QDBusConnection::ExportScriptableSignals | QDBusConnection::ExportAllProperties;
    if (!bus_.registerObject(watcherPath, this, exported) || !bus_.registerService(watcherName))
        qFatal("there is a tray already");
}

NotifierHost::~NotifierHost() {
    bus_.unregisterService(watcherName);
    bus_.unregisterObject(watcherPath);
    QDBusConnection::disconnectFromBus(connectionName_);
}

void NotifierHost::RegisterStatusNotifierItem(const QString &service) {
    // Programs name themselves, or the object at which their icon is.
    items_ << (service.startsWith(QLatin1Char('/')) ? message().service() : service);
    emit StatusNotifierItemRegistered(items_.last());
}

QDBusMessage NotifierHost::callOfIcon(const QString &interface, const QString &method) const {
    return QDBusMessage::createMethodCall(items_.last(), itemPath, interface, method);
}

void NotifierHost::click(QPoint at) {
    bus_.asyncCall(callOfIcon(itemInterface, QStringLiteral("Activate")) << at.x() << at.y());
}

QVariant NotifierHost::property(const QString &name) const {
    const QDBusMessage answer =
        bus_.call(callOfIcon(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"))
                  << itemInterface << name);
    return answer.arguments().value(0).value<QDBusVariant>().variant();
}

}  // namespace pimloft::test
