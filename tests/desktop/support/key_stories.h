// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/support/desktop_test.h"
#include "keymapper/key_chord.h"
#include "support/key_sink.h"
#include "support/scenario.h"

#include <map>

namespace pimloft::test {

/// Whether a desktop can play a story: see tests/scenarios/keys/README.md.
bool isPlayableOnDesktop(const Scenario &story);

/// A test that plays stories of the keyboard: the program as it was built, keys that are pressed on a
/// keyboard, and the windows of other programs that get them.
class KeyStoryTest : public DesktopTest {
protected:
    void SetUp() override { openDesktop(QStringLiteral("openbox")); }

    /// Plays it with a program of its own, which has ended afterwards.
    void play(const Scenario &story);

private:
    struct Step {
        QString verb;
        QString rest;
        QStringList followed;
    };
    static std::vector<Step> stepsOf(const Scenario &story);

    void storeSettings(const std::vector<Step> &steps);
    void perform(const Step &step);
    void bringToFront(const QString &identifier);
    void launch();
    void closeAlert();
    void expectTyped(const Step &step);
    KeySink &sink() { return *sinks_.at(front_); }

    std::map<QString, std::unique_ptr<KeySink>> sinks_;  ///< by the identifier of their program
    QString front_;
    QStringList typed_;  ///< what the program in front has got since the last look
};

}  // namespace pimloft::test
