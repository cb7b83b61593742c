// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QSize>

namespace pimloft {

/// The size in pixels that a PNG or TIFF file gives in its header, or nothing valid when it is neither. Pure;
/// any thread.
///
/// Reading the header alone takes no time however large the picture is.
QSize pictureSize(const QByteArray &bytes);

}  // namespace pimloft
