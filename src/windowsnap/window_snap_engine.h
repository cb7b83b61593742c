// SPDX-License-Identifier: MIT
#pragma once

#include "app/ax_window_helper.h"
#include "platform/displays/displays.h"
#include "windowsnap/snap_overlay_controller.h"
#include "windowsnap/snap_shortcuts.h"

#include <QObject>

#include <map>

namespace pimloft {

class HotkeyManager;
class MouseTap;
class MouseWatch;
class SettingsManager;
struct MouseEvent;

/// Turns drags and shortcuts into window placements, and remembers where each application's window was
/// before. Main thread.
///
/// Points and rectangles are desktop points unless they say otherwise. A drag's overlay and the placement at
/// its end are posted to the event loop, so that the watched event is let go at once.
class WindowSnapEngine : public QObject {
    Q_OBJECT

public:
    static WindowSnapEngine &shared();
    WindowSnapEngine(MouseWatch &mouse, DisplayService &displays, WindowService &windows,
                     PanelService &panels, HotkeyManager &hotkeys, SettingsManager &settings);
    ~WindowSnapEngine() override;

    /// Watches the mouse and takes the shortcuts; does nothing when it does so already.
    void start();
    /// Lets both go and takes the overlay away. Remembered frames stay.
    void stop();

    /// A desktop that refuses is reported on standard output; drags then do nothing.
    void setupEventTap();
    void removeEventTap();
    void registerHotkeys();
    void unregisterHotkeys();

    void handleMouseEvent(const MouseEvent &event);

    /// Fills a part of `display`, or of the main display when none is given.
    void snapFocusedWindow(SnapZone zone, const std::optional<Display> &display);
    void snapFocusedWindow(const QRectF &rect);

    /// The display under a point, else the main display.
    std::optional<Display> screenContaining(QPointF point) const;

    bool isActive() const { return isActive_; }
    bool hasEventTap() const { return bool(eventTap_); }
    bool isDragging() const { return isDragging_; }
    QPointF dragStartLocation() const { return dragStartLocation_; }
    std::optional<SnapZone> currentSnapZone() const { return currentSnapZone_; }
    const std::optional<Display> &currentScreen() const { return currentScreen_; }
    /// One frame for each application, in accessibility points.
    const std::map<ProcessId, QRectF> &previousFrames() const { return previousFrames_; }
    const std::vector<std::uint32_t> &hotkeyIDs() const { return hotkeyIDs_; }
    SnapOverlayController &overlayController() { return overlayController_; }

private:
    void beginDragIfFarEnough(QPointF location);
    void followDrag(QPointF location);
    void endDrag();
    void updateOverlay();

    void perform(SnapZone zone);
    void perform(RestorePreviousFrame);
    void perform(SnapLayout layout);
    void rememberFrame(const WindowReference &window);
    std::optional<Display> connected(const Display &display) const;

    MouseWatch &mouse_;
    DisplayService &displays_;
    HotkeyManager &hotkeys_;
    SettingsManager &settings_;
    AXWindowHelper axWindows_;

    bool isActive_ = false;
    std::unique_ptr<MouseTap> eventTap_;
    bool isDragging_ = false;
    QPointF dragStartLocation_;
    std::optional<SnapZone> currentSnapZone_;
    std::optional<Display> currentScreen_;  ///< as it was when the cursor came to it
    std::map<ProcessId, QRectF> previousFrames_;
    SnapOverlayController overlayController_;
    std::vector<std::uint32_t> hotkeyIDs_;
    std::unique_ptr<QObject> overlayPosts_;  ///< destroying it drops overlay changes that are still posted
};

}  // namespace pimloft
