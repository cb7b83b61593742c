// SPDX-License-Identifier: MIT
#pragma once

#include "platform/audio/pulse_volume.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <map>
#include <optional>
#include <tuple>
#include <vector>

namespace pimloft {

/// A sink (output) or a source (input) of the sound server. A value; any thread.
struct PulseDevice {
    QByteArray name;  ///< the server's; sinks and sources have names of their own kind
    QString description;
    bool output = true;
    pa_cvolume volume{};  ///< invalid where it has none
    bool muted = false;

    friend bool operator==(const PulseDevice &a, const PulseDevice &b) {
        return a.name == b.name && a.description == b.description && a.output == b.output &&
               isEqual(a.volume, b.volume) && a.muted == b.muted;
    }
};

/// What the sound server has at one moment. A value; any thread.
struct PulseState {
    bool connected = false;
    int connection = 0;   ///< counts them
    QString server = {};  ///< "PulseAudio 16.1"
    std::vector<PulseDevice> devices = {};
    QByteArray defaultSink = {};  ///< empty where there is none
    quint64 carriedOut = 0;       ///< the newest of our changes that the server has dealt with

    friend bool operator==(const PulseState &, const PulseState &) = default;
};

/// Changes that the sound server is still to be asked for: the last one for each thing. A value.
struct PulseChanges {
    /// What a change is about.
    struct Thing {
        enum Kind { volume, mute, defaultSink } kind;
        QByteArray sink;  ///< empty for what belongs to the server

        friend bool operator<(const Thing &a, const Thing &b) {
            return std::tie(a.kind, a.sink) < std::tie(b.kind, b.sink);
        }
    };

    std::map<QByteArray, float> volumes = {};
    std::map<QByteArray, bool> mutes = {};
    std::optional<QByteArray> defaultSink = {};
    quint64 newest = 0;  ///< counts every change that was ever added

    bool isEmpty() const { return volumes.empty() && mutes.empty() && !defaultSink; }

    /// Moves out the changes of things that `wanted` approves.
    PulseChanges take(const std::function<bool(const Thing &)> &wanted);
};

}  // namespace pimloft
