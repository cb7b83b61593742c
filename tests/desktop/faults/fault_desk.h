// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/support/clipboard_desk.h"
#include "support/key_sink.h"

namespace pimloft::test {

/// A desktop on which things go wrong, with every feature of Pimloft on and a rule for the keyboard:
/// Control and C are to come as Super and C.
class FaultDesk : public ClipboardDesk {
protected:
    void SetUp() override;

    /// Starts Pimloft as above and waits until the keyboard is its own.
    void startEverything(const Variables &variables = {});
    /// Its guard while the keyboard is remapped; 0 when there is none.
    pid_t guard();
    /// What its guard was must be gone with it.
    void expectThatNothingIsLeftOf(pid_t guardBefore);
    /// That keys arrive in another program, and that none is down that nobody holds.
    void expectLiveKeyboard();
    /// That Control and C come as Super and C, as the rule wants it.
    void expectRemapping();

    /// Opens Pimloft's panel with the switches.
    void openPanel();
    /// Opens and closes the popup, and then the panel.
    void expectThatPanelsOpenAndClose();
    /// What is in the folder with the history; the rule's file always is.
    QStringList dataFiles();
    QString dataFolder() { return session().home() + QStringLiteral("/data/Pimloft"); }

    KeySink &sink();

    void TearDown() override;

private:
    void writeRule();

    std::unique_ptr<KeySink> sink_;
};

}  // namespace pimloft::test
