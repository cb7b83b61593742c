// SPDX-License-Identifier: MIT
#pragma once

#include "platform/appearance/appearance.h"
#include "platform/x11/x11_session.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QHash>
#include <QObject>

namespace pimloft {

/// What the desktop portal says of the user's wishes; where it says nothing, what the desktop's settings and
/// their theme are like. Main thread.
///
/// The portal is asked without waiting and is never started for it: a desktop that has one starts it itself.
class LinuxAppearance final : public QObject, public AppearanceService {
    Q_OBJECT

public:
    /// `bus` is the session's, connected or not.
    LinuxAppearance(X11Session &session, QDBusConnection bus);
    ~LinuxAppearance() override;

    QIcon traySymbol(const QString &) const override { return {}; }
    bool isDark() const override { return look_.isDark; }
    bool isHighContrast() const override { return look_.isHighContrast; }
    bool reducesMotion() const override { return look_.reducesMotion; }

private slots:
    void portalChanged(const QString &group, const QString &key);

private:
    /// How a desktop looks by one source.
    struct Look {
        bool isDark = false;
        bool isHighContrast = false;
        bool reducesMotion = false;

        bool operator==(const Look &) const = default;
    };

    void askPortal();
    void askPortalFor(const QString &group, const QString &key);
    void forgetPortal();
    void handle(const xcb_generic_event_t &event);
    void readSettings();
    Look wishedLook() const;
    void update();

    X11Session &session_;
    QDBusConnection bus_;
    QDBusServiceWatcher portalWatcher_;
    QHash<QString, uint> portal_;  ///< what it answered, by key
    Look settings_;                ///< by the desktop's settings
    Look look_;
    xcb_window_t settingsOwner_ = XCB_NONE;
    std::unique_ptr<X11Session::Subscription> events_;
};

}  // namespace pimloft
