// SPDX-License-Identifier: MIT
#pragma once

#include "keymapper/key_mapping.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <utility>
#include <vector>

namespace pimloft {

/// What is exchanged between users and computers. A value; any thread.
struct ExportedMappings {
    /// Names of presets, known or not, and whether they are on, in the order of the document.
    std::vector<std::pair<QString, bool>> presetStates;
    KeyMappings customMappings;

    friend bool operator==(const ExportedMappings &, const ExportedMappings &) = default;
};

/// The most bytes that are taken as a document, enough for tens of thousands of rules: what is read is held
/// several times over for a moment. The user's own file may be longer, since it may write the same numbers
/// at greater length.
inline constexpr qsizetype longestExportedMappings = 8 * 1024 * 1024;
inline constexpr qsizetype longestMappingsFile = 2 * longestExportedMappings;

/// Compact JSON in UTF-8 whose keys stand in the order of the fields.
QByteArray encode(const KeyMappings &mappings);
QByteArray encode(const ExportedMappings &exported);

/// Nothing unless the bytes are one JSON document of that form. A missing, mistyped or out-of-range value
/// anywhere refuses the whole; members that the form does not know are passed over; of a member that stands
/// twice the last counts. Whole numbers may be written with a fraction or an exponent (1.0, 1e2).
std::optional<KeyMappings> decodeMappings(const QByteArray &bytes);
std::optional<ExportedMappings> decodeExportedMappings(const QByteArray &bytes);

}  // namespace pimloft
