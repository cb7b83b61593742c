// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace pimloft {

/// Whether a link names a page of the system settings, which here is a page of the installed help.
bool isSettingsLink(const QUrl &url);

/// The page for such a link below the folder `help`; nothing when there is none. Any thread.
std::optional<QString> helpPage(const QUrl &url, const QString &help);

}  // namespace pimloft
