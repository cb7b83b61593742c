// SPDX-License-Identifier: MIT
#pragma once

#include <array>

namespace pimloft {

/// The formats that a picture is looked at as, one after the other. Named, since some formats are so loosely
/// marked that anything passes for them.
inline constexpr std::array pictureFormats{"png", "tiff", "jpeg", "gif", "bmp", "webp"};

}  // namespace pimloft
