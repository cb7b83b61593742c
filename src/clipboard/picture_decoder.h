// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

#include <functional>

namespace pimloft {

/// Answers a size for a picture of the given size, both in native pixels.
using PictureScale = std::function<QSize(QSize)>;

/// The picture that a PNG or TIFF file holds, in the size that `scale` wishes. A null image when it cannot be
/// decoded to its end, or takes more than 256 MB when it is. Takes its time; any thread.
QImage decodePicture(const QByteArray &bytes, const PictureScale &scale);

}  // namespace pimloft
