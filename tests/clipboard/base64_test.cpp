// SPDX-License-Identifier: MIT
#include "clipboard/base64.h"

#include "entries.h"

#include <gtest/gtest.h>

#include <random>

namespace pimloft {
namespace {

QByteArray encoded(const QByteArray &bytes) {
    QByteArray text(largestBase64(bytes.size()) + 1, Qt::Uninitialized);
    text.truncate(encodeBase64(bytes, text.data()) - text.constData());
    return text;
}

/// In pieces of so many characters.
std::optional<QByteArray> decoded(const QByteArray &text, qsizetype piece = 1'000'000) {
    Base64Decoder decoder;
    for (qsizetype start = 0; start < text.size(); start += piece)
        decoder.append(QByteArrayView(text).sliced(start, std::min(piece, text.size() - start)));
    return decoder.finish() ? std::optional(decoder.take()) : std::nullopt;
}

TEST(Base64, escapesSlashesAndPadsTheEnd) {
    EXPECT_EQ(encoded(""), "");
    EXPECT_EQ(encoded("\xFF"), "\\/w==");
    EXPECT_EQ(encoded("\xFF\xFF"), "\\/\\/8=");
    EXPECT_EQ(encoded("\xFF\xFF\xFF"), "\\/\\/\\/\\/");
    EXPECT_EQ(encoded("Pimloft"), "UGltbG9mdA==");
}

TEST(Base64, isTheSameAsQtsApartFromTheEscapes) {
    for (qsizetype size = 0; size < 300; ++size) {
        const QByteArray bytes = test::noise(size, unsigned(size));
        EXPECT_EQ(encoded(bytes).replace("\\/", "/"), bytes.toBase64());
    }
}

TEST(Base64, comesBackFromPiecesOfAnySize) {
    for (qsizetype size = 0; size < 60; ++size)
        for (qsizetype piece = 1; piece < 30; ++piece) {
            const QByteArray bytes = test::noise(size, unsigned(size));
            EXPECT_EQ(decoded(bytes.toBase64(), piece), bytes) << size << " bytes in pieces of " << piece;
        }
}

TEST(Base64, canBeUsedAgain) {
    Base64Decoder decoder;
    decoder.append("!!!!");
    EXPECT_FALSE(decoder.finish());
    decoder.take();
    decoder.append("QQ==");
    EXPECT_TRUE(decoder.finish());
    EXPECT_EQ(decoder.take(), "A");
}

class BrokenBase64 : public testing::TestWithParam<const char *> {};

TEST_P(BrokenBase64, isRefused) {
    EXPECT_EQ(decoded(GetParam()), std::nullopt);
    EXPECT_EQ(decoded(GetParam(), 1), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Base64, BrokenBase64,
                         testing::Values("A", "AA", "AAA", "AAAA=", "A===", "====", "QQ==QQ==", "QQ==A",
                                         "QQ=A", "AA-_", "AA\nAA", " AAAA", "AAA\xC3", "AAAA\nAAAA"));

}  // namespace
}  // namespace pimloft
