// SPDX-License-Identifier: MIT
#include "clipboard/picture_size.h"

#include <QtEndian>

#include <limits>
#include <optional>

namespace pimloft {

namespace {

QSize sizeOf(quint64 width, quint64 height) {
    constexpr quint64 largest = std::numeric_limits<int>::max();
    if (width == 0 || height == 0 || width > largest || height > largest)
        return {};
    return {int(width), int(height)};
}

QSize pngSize(QByteArrayView bytes) {
    // Signature, then the first chunk: its length, its name, the width and the height.
    constexpr qsizetype nameAt = 12;
    constexpr qsizetype end = 24;
    if (bytes.size() < end || !bytes.startsWith("\x89PNG\r\n\x1A\n") || bytes.sliced(nameAt, 4) != "IHDR")
        return {};
    return sizeOf(qFromBigEndian<quint32>(bytes.data() + 16), qFromBigEndian<quint32>(bytes.data() + 20));
}

/// The numbers of a TIFF file, in its byte order. Nothing beyond its end.
class TiffReader {
public:
    TiffReader(QByteArrayView bytes, bool isBigEndian) : bytes_(bytes), isBigEndian_(isBigEndian) {}

    template <typename Number>
    std::optional<Number> at(quint64 offset) const {
        if (offset + sizeof(Number) > quint64(bytes_.size()))
            return std::nullopt;
        const char *from = bytes_.data() + offset;
        return isBigEndian_ ? qFromBigEndian<Number>(from) : qFromLittleEndian<Number>(from);
    }

    /// The value of a directory's entry that holds one whole number.
    quint64 value(quint64 entry) const {
        constexpr int shortType = 3;
        constexpr int longType = 4;
        switch (at<quint16>(entry + 2).value_or(0)) {
        case shortType:
            return at<quint16>(entry + 8).value_or(0);
        case longType:
            return at<quint32>(entry + 8).value_or(0);
        default:
            return 0;
        }
    }

private:
    QByteArrayView bytes_;
    bool isBigEndian_;
};

QSize tiffSize(QByteArrayView bytes) {
    const bool isBigEndian = bytes.startsWith(QByteArrayView("MM\0*", 4));
    if (!isBigEndian && !bytes.startsWith(QByteArrayView("II*\0", 4)))
        return {};
    constexpr int widthTag = 256;
    constexpr int heightTag = 257;
    constexpr quint64 entrySize = 12;
    const TiffReader reader(bytes, isBigEndian);
    const quint64 directory = reader.at<quint32>(4).value_or(0);
    const int count = reader.at<quint16>(directory).value_or(0);
    quint64 width = 0;
    quint64 height = 0;
    for (int index = 0; index < count; ++index) {
        const quint64 entry = directory + 2 + quint64(index) * entrySize;
        const int tag = reader.at<quint16>(entry).value_or(0);
        if (tag == widthTag)
            width = reader.value(entry);
        else if (tag == heightTag)
            height = reader.value(entry);
    }
    return sizeOf(width, height);
}

}  // namespace

QSize pictureSize(const QByteArray &bytes) {
    const QSize png = pngSize(bytes);
    return png.isValid() ? png : tiffSize(bytes);
}

}  // namespace pimloft
