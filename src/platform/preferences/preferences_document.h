// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QMap>
#include <QVariant>
#include <optional>

namespace pimloft {

/// The content of a preferences file: one JSON object, name to value. A value; any thread.
struct PreferencesDocument {
    /// Flags, whole numbers of 64 bits, other numbers, texts and lists of texts.
    QVariantMap values;
    /// Values of any other kind, as they stand in the file: another version may understand them.
    QMap<QString, QByteArray> foreign;

    friend bool operator==(const PreferencesDocument &, const PreferencesDocument &) = default;
};

/// Nothing when the bytes are not one JSON object in UTF-8. Of a name that stands twice the last counts.
std::optional<PreferencesDocument> parsePreferences(const QByteArray &bytes);

/// What parsePreferences reads back as the same document: a number with a fraction keeps its point (12.0).
/// Values that JSON cannot hold (infinite numbers, other types) are left out.
QByteArray encodePreferences(const PreferencesDocument &document);

}  // namespace pimloft
