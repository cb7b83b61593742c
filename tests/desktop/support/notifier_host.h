// SPDX-License-Identifier: MIT
#pragma once

#include "support/desktop_session.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QPoint>
#include <QStringList>

namespace pimloft::test {

/// The tray of a desktop whose icons live on the session bus, as that of Plasma or Xfce. It never says where
/// an icon is. Main thread.
class NotifierHost : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ items)
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ isHostRegistered)
    Q_PROPERTY(int ProtocolVersion READ protocolVersion)

public:
    explicit NotifierHost(const DesktopSession &session);
    ~NotifierHost() override;

    bool hasIcon() const { return !items_.isEmpty(); }
    /// Tells the icon that the user has clicked it, there on the screen.
    void click(QPoint at);
    /// A property of the icon: "Id", "Title", "ToolTip"...
    QVariant property(const QString &name) const;

    QStringList items() const { return items_; }
    bool isHostRegistered() const { return true; }
    int protocolVersion() const { return 0; }

public slots:
    Q_SCRIPTABLE void RegisterStatusNotifierItem(const QString &service);
    Q_SCRIPTABLE void RegisterStatusNotifierHost(const QString &) {}

signals:
    Q_SCRIPTABLE void StatusNotifierItemRegistered(const QString &service);
    Q_SCRIPTABLE void StatusNotifierItemUnregistered(const QString &service);
    Q_SCRIPTABLE void StatusNotifierHostRegistered();

private:
    QDBusMessage callOfIcon(const QString &interface, const QString &method) const;

    QString connectionName_;
    QDBusConnection bus_;
    QStringList items_;
};

}  // namespace pimloft::test
