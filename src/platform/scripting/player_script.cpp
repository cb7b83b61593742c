// SPDX-License-Identifier: MIT
#include "platform/scripting/player_script.h"

#include <QRegularExpression>

#include <array>
#include <utility>

namespace pimloft {

namespace {

constexpr std::array players = {
    std::pair{"com.spotify.client", "Spotify"},
    std::pair{"com.apple.Music", "Music"},
};

}  // namespace

std::optional<QString> scriptedPlayer(const QString &bundleId) {
    for (const auto &[id, name] : players)
        if (bundleId == QLatin1String(id))
            return QLatin1String(name);
    return std::nullopt;
}

QString setVolumeScript(const QString &player, int percent) {
    return QStringLiteral("tell application \"%1\" to set sound volume to %2").arg(player).arg(percent);
}

std::optional<SetVolume> parseSetVolume(const QString &script) {
    static const QRegularExpression form(
        QStringLiteral("\\Atell application \"([^\"]*)\" to set sound volume to (-?[0-9]+)\\z"));
    const auto match = form.match(script);
    bool isNumber = false;
    const int percent = match.captured(2).toInt(&isNumber);
    if (!isNumber)
        return std::nullopt;
    for (const auto &[id, name] : players)
        if (match.captured(1) == QLatin1String(name))
            return SetVolume{QLatin1String(id), percent};
    return std::nullopt;
}

}  // namespace pimloft
