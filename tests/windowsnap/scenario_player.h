// SPDX-License-Identifier: MIT
#pragma once

#include "app/hotkey_manager.h"
#include "app/settings_manager.h"
#include "platform/fake_desktop.h"
#include "support/animation_clock.h"
#include "support/scenario.h"
#include "windowsnap/window_snap_engine.h"

#include <QStringList>

namespace pimloft::test {

/// Plays a scenario on a pretended desktop. What a step may be is listed in the files themselves.
class ScenarioPlayer {
public:
    ScenarioPlayer();

    /// The steps again, each with what really followed from it.
    QString play(const Scenario &scenario);

private:
    void perform(const QString &verb, const QStringList &arguments);
    void describeOverlay();
    FakeWindows::Window &window(const QString &name);

    FakeDesktop desktop_;
    AnimationClock clock_;
    HotkeyManager hotkeys_{desktop_.hotkeys};
    SettingsManager settings_{desktop_.preferences, desktop_.loginItem};
    WindowSnapEngine engine_{desktop_.mouse,  desktop_.displays, desktop_.windows,
                             desktop_.panels, hotkeys_,          settings_};
    std::map<QString, FakeWindows::Window *> windows_;
    QStringList answers_;  ///< of steps that ask
};

}  // namespace pimloft::test
