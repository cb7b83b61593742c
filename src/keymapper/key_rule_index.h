// SPDX-License-Identifier: MIT
#pragma once

#include "keymapper/key_mapping.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace pimloft {

/// Finds the first of a list of rules that fires, as if the list were walked, without walking it. Immutable;
/// any thread. Looking something up neither allocates nor takes longer the more rules there are.
///
/// The rules are sorted by their key, and those of a key by the modifiers that they ask for, of which a
/// keyboard has few. Of rules that ask for the same, only one can fire in each application; which one is
/// settled beforehand.
class KeyRuleIndex {
public:
    KeyRuleIndex() = default;
    explicit KeyRuleIndex(const KeyMappings &rules);

    /// What a rule makes of an event.
    struct Rewrite {
        KeyCode toKeyCode;
        KeyFlags removed;
        KeyFlags added;
    };
    /// The first rule that fires in the application `frontmost`, whose identifier is empty when it has none.
    /// Null when none fires.
    const Rewrite *find(KeyCode key, KeyFlags flags, std::string_view frontmost) const noexcept;

private:
    using Order = std::uint32_t;  ///< a rule's place in the list
    using App = std::uint32_t;    ///< one of the applications that some rule leaves out

    /// The rules on one key that ask for the same modifiers.
    struct Group {
        KeyFlags modifiers;
        Order first;
        /// What fires, if anything, in the applications that the first one leaves out. Sorted.
        std::vector<std::pair<App, std::optional<Order>>> elsewhere;
        std::optional<Order> rule(std::optional<App> frontmost) const noexcept;
    };
    struct TextHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const noexcept {
            return std::hash<std::string_view>()(text);
        }
    };

    std::vector<App> number(const QStringList &apps);
    std::optional<App> appOf(std::string_view identifier) const noexcept;

    std::vector<Rewrite> rewrites_;                           ///< one for each rule
    std::unordered_map<KeyCode, std::vector<Group>> groups_;  ///< by the place of their first rule
    std::unordered_map<std::string, App, TextHash, std::equal_to<>> apps_;
};

}  // namespace pimloft
