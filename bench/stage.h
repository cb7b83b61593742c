// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/support/program.h"
#include "desktop/support/x_desktop.h"
#include "support/desktop_session.h"
#include "support/physical_input.h"

#include <QElapsedTimer>
#include <QJsonObject>

#include <chrono>
#include <memory>
#include <vector>

namespace pimloft::bench {

/// A desktop to measure in, with what a user has there. Main thread.
class Stage {
public:
    /// `preferences`: what the user has set, beside having gone through the first run.
    explicit Stage(const QJsonObject &preferences = {});
    ~Stage();

    test::DesktopSession session;
    test::XDesktop desktop;
    test::PhysicalInput hands;

    /// Starts Pimloft and waits for its shortcuts.
    test::Program &startPimloft();
    /// Opens a window of a program, with the keyboard in it.
    xcb_window_t openWindow(const QString &program, const QStringList &arguments, const QString &title);

    bool shortcutsAreLive() const;

private:
    std::unique_ptr<test::Program> pimloft_;
    std::vector<std::unique_ptr<QProcess>> clients_;
};

/// Waits where waiting is what is measured.
void rest(std::chrono::milliseconds time);

/// Has another program copy a text; it stays the owner until somebody else copies.
void copyText(const Stage &stage, const QString &text);

/// Milliseconds until `condition` holds, looking without a pause. Ends the run when it does not within 5 s.
template <typename Condition>
double millisecondsUntil(Condition condition) {
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition())
        if (elapsed.hasExpired(5000))
            qFatal("what is to be measured does not happen");
    return double(elapsed.nsecsElapsed()) / 1e6;
}

}  // namespace pimloft::bench
