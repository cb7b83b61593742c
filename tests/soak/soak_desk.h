// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/support/program.h"
#include "desktop/support/tray_host.h"
#include "desktop/support/x_desktop.h"
#include "support/desktop_session.h"
#include "support/physical_input.h"
#include "support/sound_server.h"

#include <QRandomGenerator>

#include <memory>
#include <vector>

namespace pimloft::test {

/// A whole desktop with its user, and Pimloft with every feature on. What it starts ends with it. Main
/// thread.
class SoakDesk {
public:
    /// The newest entries that the history keeps: few, so that what they hold is soon the same at any moment.
    static constexpr int historyLength = 20;

    explicit SoakDesk(quint32 seed);
    ~SoakDesk();

    /// Brings a window to the front; false when that does not happen.
    bool raise(xcb_window_t window);
    /// One of the windows that can be typed into.
    xcb_window_t anyWindow();
    QPoint anyPoint(const QRect &area);

    bool hasPanel() { return !desktop.unmanagedWindows(windowClass).empty(); }
    bool waitForPanel(bool open);
    /// Clicks the icon in the tray until the panel is there and has the keyboard.
    bool openPanel();
    /// Waits until the program has done what it has begun: nobody is quicker than a panel takes the keyboard.
    void settle() const;
    /// Waits until all keys have arrived where they were meant to: while keys are mapped they are passed on
    /// one after the other, and who types quicker than that would go to the next window before its keys.
    /// False when some key stays down.
    bool awaitKeys();
    /// Says a word to the running program as another launch does, without starting one.
    void say(const char *command) const;
    std::string socket() const;

    /// Another program takes the clipboard.
    void copy(const QString &program, const QStringList &arguments, const QByteArray &input = {});
    /// Changes with every save.
    quint64 historyVersion() const;
    /// The number behind "pimloft.ID.enabled"; true where nothing is stored.
    bool isFeatureOn(const QString &id) const;

    QString folder(const QString &name) const { return session.home() + QLatin1Char('/') + name; }

    /// With two outputs.
    struct Sound : SoundServer {
        Sound();
    };

    // In the order in which they come up: the session's environment leads to the sound server.
    Sound sound;
    DesktopSession session;
    XDesktop desktop;
    PhysicalInput hands;
    QRandomGenerator random;
    std::unique_ptr<Program> pimloft;
    xcb_window_t editor = XCB_NONE;
    xcb_window_t notes = XCB_NONE;
    xcb_window_t terminal = XCB_NONE;
    xcb_window_t left = XCB_NONE;   ///< a file manager's window
    xcb_window_t right = XCB_NONE;  ///< and another one
    const QString windowClass = QStringLiteral("pimloft");

private:
    void writeSettings();
    xcb_window_t open(const QString &program, const QStringList &arguments, const QString &title);

    TrayHost tray_;
    std::vector<std::unique_ptr<QProcess>> programs_;
    std::vector<std::unique_ptr<QProcess>> copied_;
};

}  // namespace pimloft::test
