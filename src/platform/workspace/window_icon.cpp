// SPDX-License-Identifier: MIT
#include "platform/workspace/window_icon.h"

#include <QImage>
#include <QPixmap>

namespace pimloft {

namespace {

constexpr std::uint32_t largestSide = 1024;

}  // namespace

QIcon windowIcon(std::span<const std::uint32_t> property) {
    QIcon icon;
    while (property.size() > 2) {
        const std::uint32_t width = property[0];
        const std::uint32_t height = property[1];
        property = property.subspan(2);
        const bool isImage = width > 0 && height > 0 && width <= largestSide && height <= largestSide;
        if (!isImage || property.size() < std::size_t(width) * height)
            break;
        // The pixels are the property's: the pixmap is a copy of them.
        const QImage image(reinterpret_cast<const uchar *>(property.data()), int(width), int(height),
                           QImage::Format_ARGB32);
        icon.addPixmap(QPixmap::fromImage(image));
        property = property.subspan(std::size_t(width) * height);
    }
    return icon;
}

}  // namespace pimloft
