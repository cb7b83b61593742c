// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/mpris_player.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace pimloft {

/// The media players that run in this session. Looks for them when it is first used, and follows them from
/// then on; never starts one. Main thread.
class MprisPlayers : public QObject {
    Q_OBJECT

public:
    /// Says which application a player is; nothing for an unknown one.
    using Identify = std::function<std::optional<QString>(const MprisPlayer &)>;
    MprisPlayers(QDBusConnection bus, Identify identify);
    ~MprisPlayers() override;

    using Done = std::function<void(std::optional<QString> error)>;

    /// Sets the own volume (0 to 1) of every running player that is this application. An error where there is
    /// none, or where none of them takes it within a second.
    void setVolume(const QString &bundleId, double volume, Done done);

private:
    struct Player {
        MprisPlayer player;
        int openQuestions = 0;  ///< about it
    };
    using Answer = std::function<void(const QDBusMessage &)>;

    void look();
    void add(const QString &service);
    void remove(const QString &service);
    void learn(const QString &service, const QDBusMessage &question,
               const std::function<void(MprisPlayer &, const QVariant &)> &keep);
    void runWaiting();
    void setVolumeNow(const QString &bundleId, double volume, const Done &done);
    void call(QDBusMessage message, Answer answer);

    QDBusConnection bus_;
    Identify identify_;
    std::unique_ptr<QDBusServiceWatcher> watcher_;  ///< from the first use on
    bool isListed_ = false;
    std::map<QString, Player> players_;           ///< by their names on the bus
    std::vector<std::function<void()>> waiting_;  ///< until all that is asked of the players is answered
};

}  // namespace pimloft
