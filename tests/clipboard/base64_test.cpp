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

/// As the stream of a history file does: what is not taken as it is written comes without its escapes.
std::optional<QByteArray> decodedAsWritten(const QByteArray &text, qsizetype piece) {
    Base64Decoder decoder;
    QByteArray left;
    for (qsizetype start = 0; start < text.size(); start += piece) {
        left += text.mid(start, piece);
        left = left.mid(decoder.appendWritten(left));
        if (left == "\\" && start + piece < text.size())
            continue;
        decoder.append(left.replace("\\/", "/"));
        left.clear();
    }
    return decoder.finish() ? std::optional(decoder.take()) : std::nullopt;
}

TEST(Base64, comesBackAsItIsWrittenInPiecesOfAnySize) {
    for (qsizetype size = 0; size < 60; ++size)
        for (qsizetype piece = 1; piece < 30; ++piece) {
            QByteArray bytes = test::noise(size, unsigned(size));
            bytes.replace('a', "\xFF\xFF\xFF");  // many slashes, side by side
            EXPECT_EQ(decodedAsWritten(encoded(bytes), piece), bytes)
                << size << " bytes, pieces of " << piece;
            EXPECT_EQ(decodedAsWritten(bytes.toBase64(), piece), bytes)
                << size << " bytes, pieces of " << piece;
        }
}

TEST(Base64, stopsAtWhatItDoesNotDecodeAsItIsWritten) {
    const std::pair<const char *, qsizetype> cases[] = {{"QUJD", 4},
                                                        {"QUJDRE", 6},
                                                        {"QUI=", 3},
                                                        {"\\", 0},
                                                        {"A\\/", 3},
                                                        {"A\\", 1},
                                                        {"!", 0},
                                                        {"QUJD\nAAA", 4},
                                                        {"A\\n", 1},
                                                        {"A\\\\", 1},
                                                        {"AAAA\\u0041", 4},
                                                        {"", 0},
                                                        // The letter of another escape is Base64 by itself.
                                                        {"AAA\\nAAAAAAAA", 3},
                                                        {"\\nAA\\/AAAAAAAA", 0}};
    for (const auto &[written, taken] : cases) {
        Base64Decoder decoder;
        EXPECT_EQ(decoder.appendWritten(QByteArray(written)), taken) << written;
    }
}

TEST(Base64, takesNothingAsItIsWrittenOnceItIsPaddedOrBroken) {
    for (const char *before : {"QQ==", "!!!!"}) {
        Base64Decoder decoder;
        decoder.append(before);
        EXPECT_EQ(decoder.appendWritten("QUJD"), 0);
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
                                         "QQ=A", "AA-_", "AA\nAA", " AAAA", "AAA\xC3", "AAAA\nAAAA",
                                         "!!!!QUJD"));

}  // namespace
}  // namespace pimloft
