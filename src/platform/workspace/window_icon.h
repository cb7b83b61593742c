// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

#include <cstdint>
#include <span>

namespace pimloft {

/// The icon that a window carries (_NET_WM_ICON): images, each as width, height and ARGB pixels. What is cut
/// off or makes no sense is left out; a null icon when nothing is left. GUI thread.
QIcon windowIcon(std::span<const std::uint32_t> property);

}  // namespace pimloft
