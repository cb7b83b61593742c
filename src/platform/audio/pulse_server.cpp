// SPDX-License-Identifier: MIT
#include "platform/audio/pulse_server.h"

#include <pulse/operation.h>
#include <pulse/proplist.h>
#include <pulse/subscribe.h>

#include <algorithm>
#include <utility>

namespace pimloft {

namespace {

using namespace std::chrono_literals;

constexpr auto shortestPause = 300ms;
constexpr auto longestPause = 5000ms;

/// What a server without a device makes up, so that programs have something to play to.
constexpr const char *dummySink = "auto_null";

/// The answer comes by a callback; nobody asks how it stands. False: the server has just gone.
bool send(pa_operation *operation) {
    if (operation)
        pa_operation_unref(operation);
    return operation != nullptr;
}

QString serverName(const pa_server_info &info) {
    const QString name = QString::fromUtf8(info.server_name);
    // PipeWire's name ends with its own version, and the other is that of what it stands in for.
    return name.contains(QLatin1String("PipeWire"))
               ? name
               : QStringLiteral("PulseAudio %1").arg(QString::fromUtf8(info.server_version));
}

}  // namespace

PulseServer::PulseServer(std::function<void(PulseState)> report)
    : report_(std::move(report)), pause_(shortestPause), loop_([this] { wakeUp(); }) {
}

PulseServer::~PulseServer() {
    loop_.stop();
    if (context_) {
        pa_context_set_state_callback(context_.get(), nullptr, nullptr);
        pa_context_disconnect(context_.get());
    }
}

quint64 PulseServer::change(const std::function<void(PulseChanges &)> &add) {
    quint64 number = 0;
    {
        const std::lock_guard lock(mutex_);
        add(changes_);
        number = ++changes_.newest;
    }
    loop_.wake();
    return number;
}

PulseState PulseServer::waitForState(std::chrono::milliseconds longest) {
    std::unique_lock lock(mutex_);
    isPublished_.wait_for(lock, longest, [this] { return published_.has_value(); });
    return published_.value_or(PulseState{});
}

void PulseServer::wakeUp() {
    if (!std::exchange(isStarted_, true))
        connect();
    carryOut();
}

void PulseServer::connect() {
    pa_proplist *properties = pa_proplist_new();
    pa_proplist_sets(properties, PA_PROP_APPLICATION_NAME, "Pimloft");
    pa_proplist_sets(properties, PA_PROP_APPLICATION_ID, "app.pimloft.Pimloft");
    context_.reset(pa_context_new_with_proplist(loop_.api(), "Pimloft", properties));
    pa_proplist_free(properties);
    pa_context_set_state_callback(
        context_.get(), [](pa_context *, void *self) { static_cast<PulseServer *>(self)->contextChanged(); },
        this);
    pa_context_set_subscribe_callback(
        context_.get(),
        [](pa_context *, pa_subscription_event_type_t, std::uint32_t, void *self) {
            static_cast<PulseServer *>(self)->read();
        },
        this);
    // A refusal may have been told already, and the context given up, when this returns.
    if (pa_context_connect(context_.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0 && context_)
        lose();
}

void PulseServer::contextChanged() {
    switch (pa_context_get_state(context_.get())) {
    case PA_CONTEXT_READY:
        pause_ = shortestPause;
        send(pa_context_subscribe(context_.get(),
                                  pa_subscription_mask_t(PA_SUBSCRIPTION_MASK_SERVER |
                                                         PA_SUBSCRIPTION_MASK_SINK |
                                                         PA_SUBSCRIPTION_MASK_SOURCE),
                                  nullptr, nullptr));
        read();
        break;
    case PA_CONTEXT_FAILED:
    case PA_CONTEXT_TERMINATED:
        lose();
        break;
    default:
        break;
    }
}

void PulseServer::lose() {
    // Calls that are under way are never answered.
    context_.reset();
    calls_.clear();
    busy_.clear();
    isReading_ = false;
    isOutdated_ = false;
    balanced_.clear();
    written_.clear();
    state_ = {.connection = state_.connection, .carriedOut = state_.carriedOut};
    carryOut();
    publish();
    loop_.callAfter(pause_, [this] { connect(); });
    pause_ = std::min(pause_ * 2, longestPause);
}

void PulseServer::read() {
    isOutdated_ = isReading_;
    if (isReading_)
        return;
    isReading_ = true;
    reading_ = {.connected = true};
    // The server answers in this order.
    send(pa_context_get_server_info(
        context_.get(),
        [](pa_context *, const pa_server_info *info, void *self) {
            static_cast<PulseServer *>(self)->takeServer(info);
        },
        this));
    send(pa_context_get_sink_info_list(
        context_.get(),
        [](pa_context *, const pa_sink_info *info, int, void *self) {
            static_cast<PulseServer *>(self)->takeSink(info);
        },
        this));
    send(pa_context_get_source_info_list(
        context_.get(),
        [](pa_context *, const pa_source_info *info, int, void *self) {
            static_cast<PulseServer *>(self)->takeSource(info);
        },
        this));
}

void PulseServer::takeServer(const pa_server_info *info) {
    if (!info)
        return;
    reading_.server = serverName(*info);
    reading_.defaultSink = info->default_sink_name;
}

template <typename Info>
void PulseServer::takeDevice(const Info &info, bool output) {
    reading_.devices.push_back({.name = info.name,
                                .description = QString::fromUtf8(info.description),
                                .output = output,
                                .volume = info.volume,
                                .muted = info.mute != 0});
}

void PulseServer::takeSink(const pa_sink_info *info) {
    if (!info || qstrcmp(info->name, dummySink) == 0)
        return;
    takeDevice(*info, true);
    const pa_cvolume &volume = info->volume;
    const auto written = written_.find(info->name);
    const bool isOurs = written != written_.end() && isEqual(written->second, volume);
    if (!isOurs && !isSilent(volume))
        balanced_[info->name] = volume;
}

void PulseServer::takeSource(const pa_source_info *info) {
    if (!info)
        return finishReading();
    // What a sink plays can be recorded; that is no device.
    if (info->monitor_of_sink == PA_INVALID_INDEX)
        takeDevice(*info, false);
}

void PulseServer::finishReading() {
    isReading_ = false;
    const bool isFirst = !state_.connected;
    reading_.connection = state_.connection + (isFirst ? 1 : 0);
    reading_.carriedOut = state_.carriedOut;
    // The dummy is the default of a server without devices, and PipeWire may name one that is still to come.
    const auto isDefault = [this](const PulseDevice &device) {
        return device.output && device.name == reading_.defaultSink;
    };
    if (std::none_of(reading_.devices.begin(), reading_.devices.end(), isDefault))
        reading_.defaultSink.clear();
    state_ = reading_;
    if (std::exchange(isOutdated_, false))
        read();
    carryOut();
    publish();
}

void PulseServer::carryOut() {
    PulseChanges changes;
    quint64 newest = 0;
    bool allTaken = false;
    {
        const std::lock_guard lock(mutex_);
        // Without a server nothing can be changed, and what was wished for then is not for the next one.
        changes = state_.connected
                      ? changes_.take([this](const Thing &thing) { return !busy_.contains(thing); })
                      : changes_.take([](const Thing &) { return true; });
        newest = changes_.newest;
        allTaken = changes_.isEmpty();
    }
    if (state_.connected)
        carryOut(changes);
    if (allTaken && calls_.empty() && !isReading_ && state_.carriedOut != newest) {
        state_.carriedOut = newest;
        publish();
    }
}

void PulseServer::carryOut(const PulseChanges &changes) {
    for (const auto &[sink, volume] : changes.volumes)
        if (const auto channels = channelsFor(sink, volume))
            call({Thing::volume, sink}, [&, &sink = sink](void *call) {
                return pa_context_set_sink_volume_by_name(context_.get(), sink, &*channels, onDone, call);
            });
    for (const auto &[sink, muted] : changes.mutes)
        call({Thing::mute, sink}, [&, &sink = sink, &muted = muted](void *call) {
            return pa_context_set_sink_mute_by_name(context_.get(), sink, muted, onDone, call);
        });
    if (const auto &sink = changes.defaultSink)
        call({Thing::defaultSink, {}},
             [&](void *call) { return pa_context_set_default_sink(context_.get(), *sink, onDone, call); });
}

std::optional<pa_cvolume> PulseServer::channelsFor(const QByteArray &sink, float volume) {
    const auto device =
        std::find_if(state_.devices.begin(), state_.devices.end(),
                     [&](const PulseDevice &each) { return each.output && each.name == sink; });
    if (device == state_.devices.end())
        return std::nullopt;
    const auto balanced = balanced_.find(sink);
    const bool fits = balanced != balanced_.end() && balanced->second.channels == device->volume.channels;
    return written_[sink] = scaled(fits ? balanced->second : device->volume, volume);
}

void PulseServer::call(Thing thing, const std::function<pa_operation *(void *)> &ask) {
    const auto made = calls_.insert(calls_.end(), {this, thing});
    busy_.insert(thing);
    if (!send(ask(&*made)))
        finish(*made);
}

void PulseServer::onDone(pa_context *, int, void *data) {
    Call &call = *static_cast<Call *>(data);
    PulseServer &server = *call.server;
    server.finish(call);
    // Refused or not: what it has come to is what the server says now.
    server.read();
    server.carryOut();
}

void PulseServer::finish(const Call &call) {
    busy_.erase(call.thing);
    calls_.remove_if([&call](const Call &each) { return &each == &call; });
}

void PulseServer::publish() {
    if (published_ == state_)
        return;
    {
        const std::lock_guard lock(mutex_);
        published_ = state_;
    }
    isPublished_.notify_all();
    report_(state_);
}

}  // namespace pimloft
