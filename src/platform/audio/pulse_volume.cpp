// SPDX-License-Identifier: MIT
#include "platform/audio/pulse_volume.h"

#include <algorithm>
#include <cmath>

namespace pimloft {

namespace {

/// The server's steps are finer than what anybody can hear or set. Rounded to this part, a percentage does
/// not fall below the whole number that it was set to.
constexpr double finest = 1e-4;

}  // namespace

std::optional<float> scalar(const pa_cvolume &volume) {
    if (!pa_cvolume_valid(&volume))
        return std::nullopt;
    const double exact = double(pa_cvolume_max(&volume)) / PA_VOLUME_NORM;
    const auto rounded = float(std::min(std::round(exact / finest) * finest, 1.0));
    // The nearest number to 53 hundredths times a hundred is a little less than 53.
    const float above = std::nextafter(rounded, 1.0F);
    return std::floor(above * 100) > std::floor(rounded * 100) ? above : rounded;
}

pa_volume_t step(float scalar) {
    return pa_volume_t(std::lround(std::clamp(double(scalar), 0.0, 1.0) * PA_VOLUME_NORM));
}

pa_cvolume scaled(const pa_cvolume &balanced, float scalar) {
    pa_cvolume volume = balanced;
    pa_cvolume_scale(&volume, step(scalar));
    return volume;
}

bool isSilent(const pa_cvolume &volume) {
    return pa_cvolume_max(&volume) == PA_VOLUME_MUTED;
}

bool isEqual(const pa_cvolume &a, const pa_cvolume &b) {
    return std::equal(a.values, a.values + a.channels, b.values, b.values + b.channels);
}

}  // namespace pimloft
