// SPDX-License-Identifier: MIT
#pragma once

#include "platform/events/shortcut_chord.h"
#include "platform/workspace/desktop_entries.h"
#include "platform/workspace/program_traits.h"

#include <QString>

#include <optional>
#include <span>
#include <string_view>

namespace pimloft {

/// What the program knows another program by. A value; any thread.
struct Identity {
    std::optional<QString> bundleId;  ///< absent when the desktop does not know the program
    ShortcutChord chord = ShortcutChord::control;

    friend bool operator==(const Identity &, const Identity &) = default;
};

/// A program that is known by name. Names are separated by blanks and compared without case.
struct IdentityRow {
    std::string_view bundleId;
    ShortcutChord chord;
    std::string_view entries;      ///< ids of desktop entries: the distributions', Flatpak's and Snap's
    std::string_view classes;      ///< parts of WM_CLASS
    std::string_view executables;  ///< counts only where neither an entry nor a window tells
};

/// Every program that is known by name. Data; any thread.
std::span<const IdentityRow> identityTable();

/// Known programs have the identifiers that the rest of the program speaks of, and so have the roles: file
/// managers "com.apple.finder", terminals "com.apple.Terminal", music players "com.apple.Music". Any other
/// program has the id of its desktop entry. Pure; any thread.
Identity identify(const ProgramTraits &traits, const std::optional<DesktopEntry> &entry);

/// Of the desktop itself, the window behind all others: it shows files, whoever draws it.
Identity desktopIdentity();

}  // namespace pimloft
