// SPDX-License-Identifier: MIT
#include "clipboard/utf8_text.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

TEST(TextFromUtf8, keepsAByteOrderMarkAtTheBeginning) {
    EXPECT_EQ(textFromUtf8("\xEF\xBB\xBFx"), QStringLiteral("\uFEFFx"));
}

TEST(TextFromUtf8, readsAnEmptyTextAsSuch) {
    EXPECT_EQ(textFromUtf8(""), QString());
}

class BrokenUtf8 : public testing::TestWithParam<const char *> {};

TEST_P(BrokenUtf8, isNoText) {
    EXPECT_EQ(textFromUtf8(GetParam()), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Utf8, BrokenUtf8,
                         testing::Values("a\xFF", "\xC3", "\xE2\x82", "\xC0\xAF", "\xED\xA0\x80",
                                         "\xF4\x90\x80\x80", "\xC3(", "\x80"));

}  // namespace
}  // namespace pimloft
