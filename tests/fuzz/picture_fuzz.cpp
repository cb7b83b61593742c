// SPDX-License-Identifier: MIT
#include "clipboard/picture_decoder.h"
#include "clipboard/picture_size.h"

#include <cstdlib>

/// Whatever is copied as a picture: its size is found or refused, and what decodes has the size that is
/// wished.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    using namespace pimloft;
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const QSize header = pictureSize(bytes);
    if (header.isValid() && header.isEmpty())
        std::abort();
    const auto thumbnail = [](QSize picture) {
        return PictureView{.part = QRect(QPoint(), picture.boundedTo({48, 96})), .size = QSize(64, 64)};
    };
    const QImage image = decodePicture(bytes, thumbnail);
    if (image.width() > 64 || image.height() > 64)
        std::abort();
    return 0;
}
