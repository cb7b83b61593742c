// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/support/program.h"
#include "desktop/support/x_desktop.h"
#include "support/desktop_session.h"
#include "support/physical_input.h"
#include "support/qt_printers.h"

#include <gmock/gmock.h>

#include <memory>
#include <vector>

namespace pimloft::test {

/// The part of an area that a zone or a slot fills, as fractions from its top-left corner.
QRect part(const QRect &area, double x, double y, double width, double height);

/// A test in a desktop of its own. What it starts ends with it; at the end the program must end well and must
/// not have complained.
class DesktopTest : public testing::Test {
protected:
    ~DesktopTest() override;
    void TearDown() override;

    /// Its user has used the program before.
    void openDesktop(const QString &windowManager, const QStringList &serverArguments = {});
    /// Starts Pimloft and waits until its shortcuts are live.
    Program &startPimloft(const Variables &variables = {});
    /// As above, where it cannot have shortcuts.
    Program &startPimloftWithoutShortcuts();
    void expectShortcuts();
    /// Goes through the first run's window by the keyboard.
    void goThroughFirstRun();

    enum class Client { xterm, gtk, qt };
    /// Opens a window of that program, gives it the keyboard and puts its visible frame there.
    xcb_window_t openWindow(Client client, const QString &title, const QRect &frame = {300, 250, 640, 400},
                            const QStringList &arguments = {});
    /// Ends the program that `openWindow` started last.
    void closeLastWindow();

    /// Takes hold of the title bar and drags it; the button stays down.
    void dragTo(xcb_window_t window, QPoint pointer);
    /// Lets go, and returns when the window manager has finished the move: until then it takes key presses.
    void drop();

    /// Whether window snapping is on, and whether the clipboard's history is: by their hotkeys.
    bool snaps() { return desktop().isKeyTaken(KEY_6, controlSuper); }
    bool records() { return desktop().isKeyTaken(KEY_V, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT); }

    /// Whether the overlay is there and nowhere else.
    bool overlayIs(const QRect &frame);
    bool noOverlay() { return desktop().unmanagedWindows(QStringLiteral("pimloft")).empty(); }

    /// Where the panel with the switches is, with the shadow that it may draw.
    std::optional<QRect> panelFrame();
    /// Opens the panel, and flips the topmost switch that is on: window snapping's, at first.
    void flipTopmostSwitch();

    /// Waits for the frame. A window that grows in steps may lack less than one; it never exceeds it.
    void expectFrame(xcb_window_t window, const QRect &frame);
    /// Returns when Pimloft has dealt with everything that the user has done so far.
    void letPimloftCatchUp();
    /// Presses Control and Super with a key of linux/input-event-codes.h.
    void press(int key) { hands().chord({KEY_LEFTCTRL, KEY_LEFTMETA, key}); }
    /// A picture for whoever looks at the build folder.
    void picture(const QString &name);

    DesktopSession &session() { return *session_; }
    XDesktop &desktop() { return *desktop_; }
    PhysicalInput &hands();
    Program &pimloft() { return *programs_.back(); }
    bool isXfwm() const { return windowManager_ == QLatin1String("xfwm4"); }

    static constexpr std::uint16_t controlSuper = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_4;

private:
    QString windowManager_;
    std::unique_ptr<DesktopSession> session_;
    std::unique_ptr<XDesktop> desktop_;
    std::unique_ptr<PhysicalInput> hands_;
    std::vector<std::unique_ptr<QProcess>> clients_;
    std::vector<std::unique_ptr<Program>> programs_;
};

/// A test that is to hold under every window manager.
class EveryManagerTest : public DesktopTest, public testing::WithParamInterface<const char *> {
protected:
    void SetUp() override { openDesktop(QString::fromLatin1(GetParam())); }
};
inline const auto everyManager = testing::Values("openbox", "xfwm4");
inline std::string managerName(const testing::TestParamInfo<const char *> &info) {
    return info.param;
}

}  // namespace pimloft::test
