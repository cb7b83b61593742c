// SPDX-License-Identifier: MIT
#include "platform/x11/screen_lock.h"

#include <QDBusConnection>

namespace pimloft {

namespace {

/// The desktops gave the same signal a name each.
constexpr const char *screenSavers[] = {"org.freedesktop.ScreenSaver", "org.gnome.ScreenSaver",
                                        "org.cinnamon.ScreenSaver", "org.mate.ScreenSaver",
                                        "org.xfce.ScreenSaver"};

/// Where the login manager keeps a session. In a path it writes a leading digit as its code.
QString sessionPath(const QString &id) {
    const QChar first = id.front();
    return QStringLiteral("/org/freedesktop/login1/session/") +
           (first.isDigit() ? QStringLiteral("_%1").arg(first.unicode(), 2, 16) + id.mid(1) : id);
}

}  // namespace

ScreenLock::ScreenLock() {
    QDBusConnection session = QDBusConnection::sessionBus();
    if (session.isConnected())
        for (const char *name : screenSavers)
            session.connect(QString(), QString(), QLatin1String(name), QStringLiteral("ActiveChanged"), this,
                            SLOT(screenSaverChanged(bool)));
    const QString id = qEnvironmentVariable("XDG_SESSION_ID");
    if (id.isEmpty())
        return;
    QDBusConnection system = QDBusConnection::systemBus();
    if (!system.isConnected())
        return;
    const QString path = sessionPath(id);
    const QString login = QStringLiteral("org.freedesktop.login1.Session");
    system.connect(QString(), path, login, QStringLiteral("Lock"), this, SLOT(lockWanted()));
    system.connect(QString(), path, login, QStringLiteral("Unlock"), this, SIGNAL(unlocked()));
    system.connect(QString(), path, QStringLiteral("org.freedesktop.DBus.Properties"),
                   QStringLiteral("PropertiesChanged"), this, SLOT(sessionChanged(QString, QVariantMap)));
}

void ScreenLock::lockWanted() {
    tellsOfEnd_ = false;
    emit locked();
}

void ScreenLock::screenSaverChanged(bool active) {
    tellsOfEnd_ = active;
    if (active)
        emit locked();
    else
        emit unlocked();
}

/// Lockers tell the login manager what they do.
void ScreenLock::sessionChanged(const QString &, const QVariantMap &changed) {
    const QVariant hint = changed.value(QStringLiteral("LockedHint"));
    if (hint.isValid())
        screenSaverChanged(hint.toBool());
}

}  // namespace pimloft
