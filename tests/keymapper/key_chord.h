// SPDX-License-Identifier: MIT
#pragma once

#include "base/keys.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace pimloft::test {

/// How scenarios write keys: "Home", "c", "Control+Shift+c". Letters stand for the positions of an American
/// keyboard. A value.
struct KeyChord {
    KeyCode key{};
    KeyFlags flags{};

    friend bool operator==(const KeyChord &, const KeyChord &) = default;
};

/// A modifier key that a scenario can press.
struct ModifierKey {
    const char *name;
    KeyCode key;
    KeyFlags flag;
};

/// The modifier of that name; nothing for another key.
std::optional<ModifierKey> modifierKey(const QString &name);
/// The modifiers of a chord in the order in which they are pressed. Of Shift it is the left one.
std::vector<ModifierKey> modifierKeys(KeyFlags flags);

/// Fails the test for a name that there is none.
KeyCode keyOfName(const QString &name);
KeyChord chordOfText(const QString &text);
QString textOfChord(const KeyChord &chord);

/// A rule of the user's own, written as "Home > Command+Left except com.apple.Terminal".
struct RuleText {
    KeyChord from;
    KeyChord to;
    QStringList except;
};
RuleText ruleOfText(const QString &text);

/// The kernel's number of a key, as KEY_... of linux/input-event-codes.h; nothing for a key that a Linux
/// keyboard lacks.
std::optional<int> kernelKey(KeyCode key);

}  // namespace pimloft::test
