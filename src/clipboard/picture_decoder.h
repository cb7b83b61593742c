// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>
#include <QRect>
#include <QSize>

#include <functional>

namespace pimloft {

/// What is wanted of a picture, in native pixels. A value.
struct PictureView {
    QRect part;  ///< of the picture; null for all of it
    QSize size;  ///< that the part is to have
};

/// Answers what is wanted of a picture of the given size.
using PictureWish = std::function<PictureView(QSize)>;

/// What `wish` wants of the picture that a PNG or TIFF file holds. A null image when the picture cannot be
/// decoded to its end, or takes more than 256 MB when it is. Takes its time; any thread.
QImage decodePicture(const QByteArray &bytes, const PictureWish &wish);

}  // namespace pimloft
