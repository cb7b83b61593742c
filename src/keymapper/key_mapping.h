// SPDX-License-Identifier: MIT
#pragma once

#include "base/keys.h"

#include <QStringList>
#include <QUuid>

#include <vector>

namespace pimloft {

/// One rewrite rule: this key with these modifiers becomes that key with those modifiers. A value; any
/// thread.
struct KeyMapping {
    QUuid id = QUuid::createUuid();
    KeyCode fromKeyCode{};
    KeyFlags fromModifiers{};  ///< must all be held; others may be held as well
    KeyCode toKeyCode{};
    KeyFlags toModifiers{};         ///< take the place of fromModifiers
    QStringList excludedApps = {};  ///< identifiers of the applications in which it never fires

    friend bool operator==(const KeyMapping &, const KeyMapping &) = default;
};

using KeyMappings = std::vector<KeyMapping>;

}  // namespace pimloft
