// SPDX-License-Identifier: MIT
#include "platform/audio/pulse_state.h"

#include <utility>

namespace pimloft {

namespace {

template <typename Value>
std::map<QByteArray, Value> takeFrom(std::map<QByteArray, Value> &all, PulseChanges::Thing::Kind kind,
                                     const std::function<bool(const PulseChanges::Thing &)> &wanted) {
    std::map<QByteArray, Value> taken;
    for (auto each = all.begin(); each != all.end();)
        if (wanted({kind, each->first}))
            taken.insert(all.extract(each++));
        else
            ++each;
    return taken;
}

}  // namespace

PulseChanges PulseChanges::take(const std::function<bool(const Thing &)> &wanted) {
    PulseChanges taken{.volumes = takeFrom(volumes, Thing::volume, wanted),
                       .mutes = takeFrom(mutes, Thing::mute, wanted),
                       .newest = newest};
    if (defaultSink && wanted({Thing::defaultSink, {}}))
        taken.defaultSink = std::exchange(defaultSink, std::nullopt);
    return taken;
}

}  // namespace pimloft
