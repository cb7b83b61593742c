// SPDX-License-Identifier: MIT
#include "finderfix/unique_name.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

struct Row {
    const char *name;
    int number;
    const char *unique;
};

class UniqueName : public testing::TestWithParam<Row> {};

TEST_P(UniqueName, isThis) {
    EXPECT_EQ(uniqueName(GetParam().name, GetParam().number).toStdString(), GetParam().unique);
}

INSTANTIATE_TEST_SUITE_P(
    Names, UniqueName,
    testing::Values(Row{"report.txt", 1, "report.txt"}, Row{"report.txt", 2, "report 2.txt"},
                    Row{"report.txt", 3, "report 3.txt"}, Row{"Archive", 2, "Archive 2"},
                    Row{"report 2.txt", 2, "report 2 2.txt"}, Row{"archive.tar.gz", 2, "archive.tar 2.gz"},
                    Row{".profile", 2, ".profile 2"}, Row{".a.txt", 2, ".a 2.txt"},
                    Row{"name.", 2, "name. 2"}, Row{"\xFF.txt", 12345, "\xFF 12345.txt"}));

}  // namespace
}  // namespace pimloft
