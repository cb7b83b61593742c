// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/linux_scripting.h"
#include "platform/scripting/mpris_players.h"

namespace pimloft {

/// The scripts that set a music player's volume, carried out on the session bus. Main thread.
class PlayerScripts final : public ScriptHandler {
public:
    PlayerScripts(QDBusConnection bus, MprisPlayers::Identify identify);

    bool handle(const QString &text, Answer answer) override;

private:
    MprisPlayers players_;
};

}  // namespace pimloft
