// SPDX-License-Identifier: MIT
#pragma once

#include "platform/appearance/appearance.h"
#include "platform/x11/x11_session.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

namespace pimloft {

/// What the desktop portal says of the user's wish for dark or light; where it says nothing, what the theme
/// of the desktop's settings is. Main thread.
///
/// The portal is asked without waiting and is never started for it: a desktop that has one starts it itself.
class LinuxAppearance final : public QObject, public AppearanceService {
    Q_OBJECT

public:
    /// `bus` is the session's, connected or not.
    LinuxAppearance(X11Session &session, QDBusConnection bus);
    ~LinuxAppearance() override;

    bool isDark() const override { return isDark_; }

private slots:
    void portalChanged(const QString &group, const QString &key);

private:
    enum class Wish { none = 0, dark = 1, light = 2 };  ///< numbered as the portal does

    void askPortal();
    void forgetPortal();
    void handle(const xcb_generic_event_t &event);
    void readSettings();
    void update();

    X11Session &session_;
    QDBusConnection bus_;
    QDBusServiceWatcher portalWatcher_;
    Wish portalWish_ = Wish::none;
    bool hasDarkTheme_ = false;
    bool isDark_ = false;
    xcb_window_t settingsOwner_ = XCB_NONE;
    std::unique_ptr<X11Session::Subscription> events_;
};

}  // namespace pimloft
