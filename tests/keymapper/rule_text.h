// SPDX-License-Identifier: MIT
#pragma once

#include "keymapper/key_mapping.h"

#include <sstream>

namespace pimloft {

/// How a test shows a rule: "115 0x0 -> 123 0x100000 except com.apple.Terminal".
inline void PrintTo(const KeyMapping &rule, std::ostream *out) {
    *out << std::uint16_t(rule.fromKeyCode) << std::hex << " 0x" << std::uint64_t(rule.fromModifiers)
         << std::dec << " -> " << std::uint16_t(rule.toKeyCode) << std::hex << " 0x"
         << std::uint64_t(rule.toModifiers) << std::dec;
    if (!rule.excludedApps.isEmpty())
        *out << " except " << rule.excludedApps.join(QStringLiteral(", ")).toStdString();
}

namespace test {

/// One line a rule.
inline std::string ruleText(const KeyMappings &rules) {
    std::ostringstream text;
    for (const KeyMapping &rule : rules) {
        PrintTo(rule, &text);
        text << '\n';
    }
    return text.str();
}

}  // namespace test
}  // namespace pimloft
