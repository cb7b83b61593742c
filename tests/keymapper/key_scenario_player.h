// SPDX-License-Identifier: MIT
#pragma once

#include "keymapper/key_chord.h"
#include "keymapper/keyboard_session.h"
#include "support/scenario.h"

#include <QStringList>

#include <set>

namespace pimloft::test {

/// Plays a scenario on a pretended desktop. What a step may be is listed in tests/scenarios/keys/README.md.
class KeyScenarioPlayer {
public:
    KeyScenarioPlayer();

    /// The steps again, each with what really followed from it.
    QString play(const Scenario &scenario);

private:
    void perform(const QString &verb, const QString &rest);
    void settle();

    void setPreset(const QString &name, bool on);
    void addRule(const QString &text);
    void bringToFront(const QString &identifier);
    void end();

    void press(const KeyChord &chord);
    void turn(const QString &name, bool down);
    void turnModifier(const ModifierKey &modifier, bool down);
    KeyEvent send(KeyCode key, KeyEventType type);
    KeyFlags held() const;

    KeyboardSession session_;
    std::set<KeyCode> heldModifiers_;
    Instant now_ = Instant() + std::chrono::hours(1);
    bool isMainThreadBusy_ = false;
    QStringList followed_;
};

}  // namespace pimloft::test
