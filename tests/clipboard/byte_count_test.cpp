// SPDX-License-Identifier: MIT
#include "clipboard/byte_count.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

struct Row {
    qint64 bytes;
    const char *text;
};

class ByteCountText : public testing::TestWithParam<Row> {};

TEST_P(ByteCountText, isWhatFileManagersShow) {
    EXPECT_EQ(byteCountText(GetParam().bytes).toStdString(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    ByteCount, ByteCountText,
    testing::Values(Row{0, "Zero KB"}, Row{1, "1 byte"}, Row{2, "2 bytes"}, Row{999, "999 bytes"},
                    Row{1000, "1 KB"}, Row{1499, "1 KB"}, Row{1500, "2 KB"}, Row{12'345, "12 KB"},
                    Row{999'499, "999 KB"}, Row{999'500, "1 MB"}, Row{1'000'000, "1 MB"},
                    Row{1'049'999, "1 MB"}, Row{1'200'000, "1.2 MB"}, Row{1'234'567, "1.2 MB"},
                    Row{10'000'000, "10 MB"}, Row{49'900'000, "49.9 MB"}, Row{49'999'999, "50 MB"},
                    Row{123'456'789, "123.5 MB"}, Row{1'000'000'000, "1 GB"}, Row{1'250'000'000, "1.25 GB"},
                    Row{1'253'000'000'000, "1.25 TB"}, Row{std::numeric_limits<qint64>::max(), "9.22 EB"}));

}  // namespace
}  // namespace pimloft
