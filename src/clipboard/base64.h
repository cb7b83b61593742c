// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <array>

namespace pimloft {

/// Base64 as a JSON text holds it, where "/" is written "\/", at the speed of memory. Qt's own takes pictures
/// apart at a tenth of it and needs a second pass for the slashes. Any thread.

/// How much `encodeBase64` writes at most for so many bytes.
constexpr qsizetype largestBase64(qsizetype bytes) {
    return (bytes + 2) / 3 * 8;
}

/// Writes `bytes` to `out` and answers where it ended. Padding is added at the end, so all pieces of one text
/// but the last are multiples of three bytes long.
char *encodeBase64(QByteArrayView bytes, char *out);

/// Puts bytes together from a text that comes in pieces.
class Base64Decoder {
public:
    void append(QByteArrayView text);
    /// Takes what there is of it at the beginning of a JSON string as it is written, "\/" for "/" or not, and
    /// answers how long that was. Padding and what does not belong into it are left to `append`.
    qsizetype appendWritten(QByteArrayView written);
    /// All bytes, when the text was whole groups of four with padding only at the end. Empty otherwise.
    bool finish();
    QByteArray take();

private:
    void appendGroups(QByteArrayView text);
    char *grow(qsizetype size);

    QByteArray bytes_;
    qsizetype size_ = 0;
    std::array<char, 4> rest_{};  ///< a group that is not yet complete
    int restSize_ = 0;
    bool isPadded_ = false;
    bool isBroken_ = false;
};

}  // namespace pimloft
