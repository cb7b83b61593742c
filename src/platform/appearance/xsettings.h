// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QVariant>

namespace pimloft {

/// The settings that a desktop publishes to its X clients (_XSETTINGS_SETTINGS): whole numbers and texts by
/// name; colours are left out. From damaged bytes come the settings before the damage. Pure; any thread.
QVariantMap parseXSettings(const QByteArray &bytes);

/// Whether these settings ask for a dark look: plainly, or by the name of the theme ("Adwaita-dark").
/// Pure; any thread.
bool prefersDark(const QVariantMap &settings);

/// Whether the theme is one that makes everything stand out ("HighContrast"). Pure; any thread.
bool prefersHighContrast(const QVariantMap &settings);

/// Whether these settings switch animations off. Pure; any thread.
bool prefersReducedMotion(const QVariantMap &settings);

}  // namespace pimloft
