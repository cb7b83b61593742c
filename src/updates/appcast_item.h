// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace pimloft {

/// One release, as the feed tells of it. A value; any thread.
struct AppcastItem {
    QString version;                      ///< for example 1.2.0; empty when the feed does not say
    std::optional<QString> releaseNotes;  ///< without white space around it
    std::optional<QUrl> downloadURL;

    friend bool operator==(const AppcastItem &, const AppcastItem &) = default;
};

}  // namespace pimloft
