// SPDX-License-Identifier: MIT
#include "platform/audio/pulse_audio.h"

#include <cmath>
#include <utility>

namespace pimloft {

namespace {

using namespace std::chrono_literals;

/// PipeWire confirms a new default before it tells of it.
constexpr auto defaultSettles = 500ms;

constexpr auto firstAnswer = 400ms;

template <typename Map>
void eraseUpTo(Map &own, quint64 carriedOut) {
    std::erase_if(own, [carriedOut](const auto &each) { return each.second.change <= carriedOut; });
}

}  // namespace

PulseAudio::PulseAudio()
    : server_([this](PulseState state) {
          QMetaObject::invokeMethod(
              &receiver_, [this, state = std::move(state)]() mutable { take(std::move(state)); },
              Qt::QueuedConnection);
      }) {
    patience_.setSingleShot(true);
    patience_.setInterval(defaultSettles);
    QObject::connect(&patience_, &QTimer::timeout, &receiver_, [this] { ownDefault_.reset(); });
}

PulseAudio::~PulseAudio() = default;

AudioDeviceId PulseAudio::idOf(bool output, const QByteArray &name) {
    const Key key(output, name);
    const auto known = ids_.constFind(key);
    if (known != ids_.cend())
        return *known;
    keys_.push_back(key);
    return ids_[key] = AudioDeviceId(std::uint32_t(keys_.size()));
}

const PulseDevice *PulseAudio::find(AudioDeviceId device) const {
    const auto index = std::size_t(device) - 1;
    if (index >= keys_.size())
        return nullptr;
    for (const PulseDevice &each : state_.devices)
        if (each.output == keys_[index].first && each.name == keys_[index].second)
            return &each;
    return nullptr;
}

std::optional<AudioDeviceId> PulseAudio::defaultOutputDevice() {
    if (ownDefault_)
        return find(ownDefault_->value) ? std::optional(ownDefault_->value) : std::nullopt;
    if (state_.defaultSink.isEmpty())
        return std::nullopt;
    const AudioDeviceId device = idOf(true, state_.defaultSink);
    return find(device) ? std::optional(device) : std::nullopt;
}

std::vector<AudioDeviceId> PulseAudio::devices() {
    std::vector<AudioDeviceId> list;
    list.reserve(state_.devices.size());
    for (const PulseDevice &each : state_.devices)
        list.push_back(idOf(each.output, each.name));
    return list;
}

bool PulseAudio::hasOutput(AudioDeviceId device) {
    const PulseDevice *found = find(device);
    return found && found->output;
}

std::optional<QString> PulseAudio::name(AudioDeviceId device) {
    const PulseDevice *found = find(device);
    if (!found)
        return std::nullopt;
    return found->description.isEmpty() ? QString::fromUtf8(found->name) : found->description;
}

std::optional<QString> PulseAudio::uid(AudioDeviceId device) {
    const PulseDevice *found = find(device);
    return found ? std::optional(QString::fromUtf8(found->name)) : std::nullopt;
}

std::optional<float> PulseAudio::volume(AudioDeviceId device) {
    const PulseDevice *found = find(device);
    if (!found)
        return std::nullopt;
    const auto own = ownVolumes_.find(device);
    return own != ownVolumes_.end() ? own->second.value : scalar(found->volume);
}

std::optional<bool> PulseAudio::isMuted(AudioDeviceId device) {
    const PulseDevice *found = find(device);
    if (!found)
        return std::nullopt;
    const auto own = ownMutes_.find(device);
    return own != ownMutes_.end() ? own->second.value : found->muted;
}

bool PulseAudio::setVolume(AudioDeviceId device, float volume) {
    const PulseDevice *found = find(device);
    if (!found || !found->output || !scalar(found->volume) || std::isnan(volume))
        return false;
    volume = std::clamp(volume, 0.0F, 1.0F);
    const quint64 change =
        server_.change([&](PulseChanges &changes) { changes.volumes[found->name] = volume; });
    ownVolumes_[device] = {volume, change};
    return true;
}

bool PulseAudio::setMuted(AudioDeviceId device, bool muted) {
    const PulseDevice *found = find(device);
    if (!found || !found->output)
        return false;
    const quint64 change = server_.change([&](PulseChanges &changes) { changes.mutes[found->name] = muted; });
    ownMutes_[device] = {muted, change};
    return true;
}

bool PulseAudio::setDefaultOutputDevice(AudioDeviceId device) {
    const PulseDevice *found = find(device);
    if (!found || !found->output)
        return false;
    const quint64 change = server_.change([&](PulseChanges &changes) { changes.defaultSink = found->name; });
    ownDefault_ = {device, change};
    patience_.stop();
    return true;
}

std::optional<VolumeListenerId> PulseAudio::listenToVolume(AudioDeviceId device,
                                                           std::function<void()> changed) {
    if (!volume(device))
        return std::nullopt;
    const VolumeListenerId id{++newestListener_};
    listeners_[id] = {device, std::move(changed)};
    return id;
}

bool PulseAudio::stopListening(AudioDeviceId device, VolumeListenerId listener) {
    const auto found = listeners_.find(listener);
    if (found == listeners_.end() || found->second.device != device)
        return false;
    listeners_.erase(found);
    return true;
}

void PulseAudio::take(PulseState state) {
    std::map<AudioDeviceId, std::optional<float>> before;
    for (const auto &[id, listener] : listeners_)
        before[listener.device] = volume(listener.device);
    // A server that comes up at login has its devices a little later than itself.
    const bool gotItsFirst =
        state_.defaultSink.isEmpty() && !state.defaultSink.isEmpty() && listeners_.empty();
    const bool restarted = state.connected && (state.connection != state_.connection || gotItsFirst);
    state_ = std::move(state);
    forgetWhatCameBack();
    if (!restarted)
        return tellOfVolumes(before);
    listeners_.clear();
    if (onRestarted)
        onRestarted();
}

void PulseAudio::forgetWhatCameBack() {
    eraseUpTo(ownVolumes_, state_.carriedOut);
    eraseUpTo(ownMutes_, state_.carriedOut);
    if (!ownDefault_ || ownDefault_->change > state_.carriedOut)
        return;
    const PulseDevice *wished = find(ownDefault_->value);
    if (!wished || wished->name == state_.defaultSink)
        ownDefault_.reset();
    else if (!patience_.isActive())
        patience_.start();
}

void PulseAudio::tellOfVolumes(const std::map<AudioDeviceId, std::optional<float>> &before) {
    // A listener may add or remove others.
    const auto listeners = listeners_;
    for (const auto &[id, listener] : listeners)
        if (listeners_.contains(id) && volume(listener.device) != before.at(listener.device))
            listener.changed();
}

PulseAudio::Summary PulseAudio::summary() {
    const PulseState state = server_.waitForState(firstAnswer);
    Summary summary{.server = state.server};
    for (const PulseDevice &device : state.devices)
        if (device.output && device.name == state.defaultSink)
            summary.output =
                device.description.isEmpty() ? QString::fromUtf8(device.name) : device.description;
    return summary;
}

}  // namespace pimloft
