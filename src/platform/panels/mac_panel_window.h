// SPDX-License-Identifier: MIT
#pragma once

#include "platform/mac/mac_geometry.h"
#include "platform/panels/panels.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace pimloft {

/// The system's window of one panel, around a view of Qt's: made as its kind needs it, since what decides
/// about activation has no effect later. Main thread.
class MacPanelWindow {
public:
    /// `view` is the native view of a window that is not on screen. `lostTyping` is called when the keyboard
    /// goes to another window of this application.
    MacPanelWindow(PanelKind kind, std::uintptr_t view, std::function<void()> lostTyping);
    ~MacPanelWindow();
    MacPanelWindow(const MacPanelWindow &) = delete;
    MacPanelWindow &operator=(const MacPanelWindow &) = delete;

    /// In desktop points.
    void setFrame(const MacRect &frame);
    void setOpacity(double opacity);
    /// Shows it in front of what is there, whatever application is active.
    void orderFront();
    void orderOut();
    /// Gives it the keyboard; the application stays in the background.
    void takeTyping();
    /// It stays in sight and takes neither keys nor clicks.
    void giveTypingBack();

private:
    struct Window;
    const std::unique_ptr<Window> window_;
};

/// Puts the window around a native view above normal ones, where an overlay is. Main thread.
void floatWindowOf(std::uintptr_t view);

/// Calls back for every press of the left or the right button in other applications, until it is destroyed.
/// Main thread.
class MacClickMonitor {
public:
    explicit MacClickMonitor(std::function<void()> clicked);
    ~MacClickMonitor();
    MacClickMonitor(const MacClickMonitor &) = delete;
    MacClickMonitor &operator=(const MacClickMonitor &) = delete;

private:
    struct Monitor;
    const std::unique_ptr<Monitor> monitor_;
};

}  // namespace pimloft
