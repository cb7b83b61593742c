// SPDX-License-Identifier: MIT
#include "platform/scripting/player_scripts.h"

#include "platform/scripting/player_script.h"

namespace pimloft {

PlayerScripts::PlayerScripts(QDBusConnection bus, MprisPlayers::Identify identify)
    : players_(std::move(bus), std::move(identify)) {
}

bool PlayerScripts::handle(const QString &text, Answer answer) {
    const auto wish = parseSetVolume(text);
    if (!wish)
        return false;
    players_.setVolume(wish->bundleId, wish->percent / 100.0,
                       [answer = std::move(answer)](const std::optional<QString> &error) {
                           answer({.items = {}, .error = error});
                       });
    return true;
}

}  // namespace pimloft
