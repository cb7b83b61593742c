// SPDX-License-Identifier: MIT
#pragma once

#include "platform/events/key_tap.h"
#include "platform/events/tap_thread.h"
#include "platform/x11/screen_lock.h"
#include "platform/x11/x11_keyboard.h"

#include <QObject>
#include <QString>

#include <optional>

namespace pimloft {

/// Takes the physical keyboards from the X server and types in their place, on a thread and a connection of
/// its own. A small process beside it gives them back if this one hangs or dies. Main thread.
class X11KeyTap final : public QObject, public KeyTap, private KeyTypist {
    Q_OBJECT

public:
    /// `guard` is the executable of that process. Without it every filter is refused.
    X11KeyTap(X11Keyboard &keyboard, QString guard);
    ~X11KeyTap() override;

    bool install(std::shared_ptr<KeyFilter> filter) override;
    /// Takes the keyboards again after they were given back because this process did not answer in time.
    void enable() override;
    void remove() override;
    void setFrontmost(std::string bundleId) override;

private:
    bool post(xcb_keycode_t key, const std::vector<xcb_keycode_t> &modifiers) override;
    std::optional<KeySet> held() const override;

    bool start();
    void end();
    void setLocked(bool locked);
    void handleLoss(unsigned start);

    X11Keyboard &keyboard_;
    std::string guard_;
    std::optional<ScreenLock> lock_;  ///< from the first filter on
    bool locked_ = false;
    std::string frontmost_;
    std::shared_ptr<KeyFilter> filter_;
    std::unique_ptr<TapThread> tap_;
    bool lost_ = false;    ///< `tap_` has ended by itself
    unsigned starts_ = 0;  ///< tells a notice of an earlier tap from one of this
};

}  // namespace pimloft
