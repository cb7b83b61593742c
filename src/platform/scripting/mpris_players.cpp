// SPDX-License-Identifier: MIT
#include "platform/scripting/mpris_players.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <algorithm>
#include <utility>

namespace pimloft {

namespace {

constexpr int timeout = 1000;

const QString prefix = QStringLiteral("org.mpris.MediaPlayer2.");
const QString path = QStringLiteral("/org/mpris/MediaPlayer2");
const QString playerInterface = QStringLiteral("org.mpris.MediaPlayer2.Player");
const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");
const QString busService = QStringLiteral("org.freedesktop.DBus");

/// Speaks for whichever player was used last, and is started by being spoken to.
const QString proxy = QStringLiteral("playerctld");

QString withoutInstance(const QString &service) {
    return service.mid(prefix.size()).section(u'.', 0, 0);
}

QDBusMessage questionToBus(const QString &method, const QVariantList &arguments = {}) {
    QDBusMessage message = QDBusMessage::createMethodCall(busService, QStringLiteral("/org/freedesktop/DBus"),
                                                          busService, method);
    message.setArguments(arguments);
    return message;
}

QDBusMessage messageToPlayer(const QString &service, const QString &method, const QVariantList &arguments) {
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, properties, method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    return message;
}

/// Counts what several players have answered.
struct Tally {
    int open = 0;
    bool isDone = false;
    QString error;
};

}  // namespace

MprisPlayers::MprisPlayers(QDBusConnection bus, Identify identify)
    : bus_(std::move(bus)), identify_(std::move(identify)) {
}

MprisPlayers::~MprisPlayers() = default;

void MprisPlayers::setVolume(const QString &bundleId, double volume, Done done) {
    if (!bus_.isConnected())
        return done(QStringLiteral("There is no session bus."));
    look();
    waiting_.push_back(
        [this, bundleId, volume, done = std::move(done)] { setVolumeNow(bundleId, volume, done); });
    runWaiting();
}

void MprisPlayers::look() {
    if (watcher_)
        return;
    watcher_ = std::make_unique<QDBusServiceWatcher>(QStringLiteral("org.mpris.MediaPlayer2*"), bus_);
    connect(watcher_.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &service, const QString &, const QString &owner) {
                remove(service);
                if (!owner.isEmpty())
                    add(service);
                runWaiting();
            });
    call(questionToBus(QStringLiteral("ListNames")), [this](const QDBusMessage &answer) {
        isListed_ = true;
        for (const QString &service : answer.arguments().value(0).toStringList())
            add(service);
        runWaiting();
    });
}

void MprisPlayers::add(const QString &service) {
    if (!service.startsWith(prefix) || players_.contains(service))
        return;
    const QString name = withoutInstance(service);
    if (name == proxy)
        return;
    players_[service].player.busName = name;
    learn(service, questionToBus(QStringLiteral("GetConnectionUnixProcessID"), {service}),
          [](MprisPlayer &player, const QVariant &answer) { player.processId = ProcessId(answer.toUInt()); });
    learn(service,
          messageToPlayer(service, QStringLiteral("Get"),
                          {QStringLiteral("org.mpris.MediaPlayer2"), QStringLiteral("DesktopEntry")}),
          [](MprisPlayer &player, const QVariant &answer) {
              player.desktopEntry = answer.value<QDBusVariant>().variant().toString();
          });
}

void MprisPlayers::remove(const QString &service) {
    players_.erase(service);
}

void MprisPlayers::learn(const QString &service, const QDBusMessage &question,
                         const std::function<void(MprisPlayer &, const QVariant &)> &keep) {
    ++players_[service].openQuestions;
    call(question, [this, service, keep](const QDBusMessage &answer) {
        const auto found = players_.find(service);
        if (found == players_.end())
            return runWaiting();
        found->second.openQuestions = std::max(0, found->second.openQuestions - 1);
        if (answer.type() == QDBusMessage::ReplyMessage)
            keep(found->second.player, answer.arguments().value(0));
        runWaiting();
    });
}

void MprisPlayers::runWaiting() {
    const bool allKnown = std::all_of(players_.begin(), players_.end(),
                                      [](const auto &each) { return each.second.openQuestions == 0; });
    if (!isListed_ || !allKnown)
        return;
    for (const auto &each : std::exchange(waiting_, {}))
        each();
}

void MprisPlayers::setVolumeNow(const QString &bundleId, double volume, const Done &done) {
    const auto tally = std::make_shared<Tally>();
    const QVariant value = QVariant::fromValue(QDBusVariant(std::clamp(volume, 0.0, 1.0)));
    for (const auto &[service, each] : players_) {
        if (identify_(each.player) != bundleId)
            continue;
        ++tally->open;
        call(messageToPlayer(service, QStringLiteral("Set"),
                             {playerInterface, QStringLiteral("Volume"), value}),
             [tally, done](const QDBusMessage &answer) {
                 const bool taken = answer.type() == QDBusMessage::ReplyMessage;
                 tally->isDone = tally->isDone || taken;
                 if (!taken)
                     tally->error = answer.errorMessage();
                 if (--tally->open == 0)
                     done(tally->isDone ? std::nullopt : std::optional(tally->error));
             });
    }
    if (tally->open == 0)
        done(QStringLiteral("The player is not running."));
}

void MprisPlayers::call(QDBusMessage message, Answer answer) {
    auto *watcher = new QDBusPendingCallWatcher(bus_.asyncCall(message, timeout), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, answer = std::move(answer)] {
        watcher->deleteLater();
        answer(watcher->reply());
    });
}

}  // namespace pimloft
