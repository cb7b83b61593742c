// SPDX-License-Identifier: MIT
#pragma once

#include "platform/appearance/appearance.h"
#include "platform/displays/x11_displays.h"
#include "platform/hotkeys/x11_hotkeys.h"
#include "platform/panels/panels.h"
#include "platform/x11/screen_lock.h"
#include "platform/x11/x11_active_window.h"
#include "platform/x11/x11_compositor.h"

#include <QAbstractNativeEventFilter>

#include <chrono>
#include <optional>
#include <vector>

namespace pimloft {

class X11Overlay;
class X11Panel;
class X11Popup;

/// Panels as windows that no window manager touches. Main thread, with a QGuiApplication on X11.
class X11Panels final : public QObject, public PanelService, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    /// What the desktop tells the panels.
    struct Desktop {
        X11Displays &displays;
        X11Keyboard &keyboard;
        X11Hotkeys &hotkeys;
        X11RawInput &input;
        X11ActiveWindow &activeWindow;
        X11Compositor &compositor;
        const AppearanceService &appearance;
    };
    /// `idle`: how long a popup waits for input.
    explicit X11Panels(const Desktop &desktop, std::chrono::milliseconds idle = std::chrono::seconds(60));
    ~X11Panels() override;

    std::unique_ptr<Panel> create(PanelKind kind, std::unique_ptr<QWindow> content) override;
    bool blends() const override { return desktop_.compositor.isRunning(); }
    bool reducesMotion() const override { return desktop_.appearance.reducesMotion(); }

    /// The popup that holds the keyboard gives it back, as KeyPoster needs it.
    void endTyping();

private:
    friend class X11Overlay;
    friend class X11Panel;
    friend class X11Popup;

    bool nativeEventFilter(const QByteArray &type, void *message, qintptr *result) override;

    const Desktop desktop_;
    const std::chrono::milliseconds idle_;
    std::optional<ScreenLock> screenLock_;  ///< from the first popup on
    std::vector<X11Panel *> panels_;
    X11Popup *typing_ = nullptr;
};

}  // namespace pimloft
