// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace pimloft {

/// A position on the keyboard as a macOS virtual key code, whatever the layout prints on it.
enum class KeyCode : std::uint16_t {};

/// The key codes that the program itself speaks of.
namespace Key {
inline constexpr KeyCode x{7};
inline constexpr KeyCode c{8};
inline constexpr KeyCode v{9};
inline constexpr KeyCode q{12};
inline constexpr KeyCode digit1{18};
inline constexpr KeyCode digit2{19};
inline constexpr KeyCode digit3{20};
inline constexpr KeyCode digit4{21};
inline constexpr KeyCode digit5{23};
inline constexpr KeyCode digit6{22};
inline constexpr KeyCode tab{48};
inline constexpr KeyCode space{49};
inline constexpr KeyCode backspace{51};
inline constexpr KeyCode rightShift{60};
inline constexpr KeyCode home{115};
inline constexpr KeyCode forwardDelete{117};
inline constexpr KeyCode end{119};
inline constexpr KeyCode leftArrow{123};
inline constexpr KeyCode rightArrow{124};
inline constexpr KeyCode downArrow{125};
inline constexpr KeyCode upArrow{126};
}  // namespace Key

/// A set of modifier keys of a global shortcut.
enum class CarbonModifiers : std::uint32_t {
    none = 0,
    command = 0x100,
    shift = 0x200,
    option = 0x800,
    control = 0x1000,
};

constexpr CarbonModifiers operator|(CarbonModifiers a, CarbonModifiers b) {
    return CarbonModifiers(std::uint32_t(a) | std::uint32_t(b));
}
constexpr bool contains(CarbonModifiers set, CarbonModifiers key) {
    return (std::uint32_t(set) & std::uint32_t(key)) == std::uint32_t(key);
}

/// A set of modifier keys that an event carries.
enum class KeyFlags : std::uint64_t {
    none = 0,
    shift = 0x20000,
    control = 0x40000,
    option = 0x80000,
    command = 0x100000,
    function = 0x800000,
};

constexpr KeyFlags operator|(KeyFlags a, KeyFlags b) {
    return KeyFlags(std::uint64_t(a) | std::uint64_t(b));
}
/// The keys of `set` that are not in `removed`.
constexpr KeyFlags operator-(KeyFlags set, KeyFlags removed) {
    return KeyFlags(std::uint64_t(set) & ~std::uint64_t(removed));
}
constexpr bool contains(KeyFlags set, KeyFlags key) {
    return (std::uint64_t(set) & std::uint64_t(key)) == std::uint64_t(key);
}

}  // namespace pimloft
