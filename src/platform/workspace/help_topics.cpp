// SPDX-License-Identifier: MIT
#include "platform/workspace/help_topics.h"

#include <QFileInfo>

#include <array>

namespace pimloft {

namespace {

struct Topic {
    const char *settings;
    const char *page;
};

constexpr std::array topics = {
    Topic{"com.apple.preference.security?Privacy_Accessibility", "permissions.html"},
    Topic{"com.apple.preferences.extensions?Finder", "file-managers.html"},
};

}  // namespace

bool isSettingsLink(const QUrl &url) {
    return url.scheme() == QLatin1String("x-apple.systempreferences");
}

std::optional<QString> helpPage(const QUrl &url, const QString &help) {
    const QString asked = url.path() + QLatin1Char('?') + url.query();
    for (const Topic &topic : topics) {
        const QString page = help + QLatin1Char('/') + QLatin1String(topic.page);
        if (isSettingsLink(url) && asked == QLatin1String(topic.settings) && QFileInfo(page).isFile())
            return page;
    }
    return std::nullopt;
}

}  // namespace pimloft
