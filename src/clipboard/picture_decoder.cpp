// SPDX-License-Identifier: MIT
#include "clipboard/picture_decoder.h"

#include <QBuffer>
#include <QImageReader>

#include <array>

namespace pimloft {

namespace {

/// What is captured as a picture. Named, since some formats are so loosely marked that anything passes for
/// them.
constexpr std::array formats{"png", "tiff"};

QImage decode(QImageReader &reader, const PictureWish &wish) {
    const QSize size = reader.size();
    if (size.isEmpty())
        return {};
    const PictureView view = wish(size);
    // The part is cut out before it is scaled.
    reader.setClipRect(view.part);
    reader.setScaledSize(view.size);
    return reader.read();
}

}  // namespace

QImage decodePicture(const QByteArray &bytes, const PictureWish &wish) {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    for (const char *format : formats) {
        buffer.seek(0);
        QImageReader reader(&buffer, format);
        // Else every plugin there is would be loaded and asked, and one of another format could take it.
        reader.setAutoDetectImageFormat(false);
        if (reader.canRead())
            return decode(reader, wish);
    }
    return {};
}

}  // namespace pimloft
