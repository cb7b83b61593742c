// SPDX-License-Identifier: MIT
#include "base/dirs.h"

#include <QMap>
#include <QProcessEnvironment>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

QProcessEnvironment environment(const QMap<QString, QString> &values) {
    QProcessEnvironment result;
    for (auto [name, value] : values.asKeyValueRange())
        result.insert(name, value);
    return result;
}

TEST(Dirs, followTheBaseDirectoryVariables) {
    const Dirs dirs = Dirs::fromEnvironment(environment({{"HOME", "/home/u"},
                                                         {"XDG_CONFIG_HOME", "/c"},
                                                         {"XDG_DATA_HOME", "/d"},
                                                         {"XDG_RUNTIME_DIR", "/r"}}));
    EXPECT_EQ(dirs.preferences, "/c/Pimloft");
    EXPECT_EQ(dirs.support, "/d/Pimloft");
    EXPECT_EQ(dirs.autostart, "/c/autostart");
    EXPECT_EQ(dirs.runtime, "/r");
}

TEST(Dirs, fallBackBelowTheHomeFolder) {
    const Dirs dirs = Dirs::fromEnvironment(environment({{"HOME", "/home/u"}}));
    EXPECT_EQ(dirs.preferences, "/home/u/.config/Pimloft");
    EXPECT_EQ(dirs.support, "/home/u/.local/share/Pimloft");
    EXPECT_EQ(dirs.runtime, "/home/u/.local/share/Pimloft/runtime");
}

TEST(Dirs, ignoreRelativeValues) {
    const Dirs dirs =
        Dirs::fromEnvironment(environment({{"HOME", "/home/u"}, {"XDG_CONFIG_HOME", "relative"}}));
    EXPECT_EQ(dirs.preferences, "/home/u/.config/Pimloft");
}

}  // namespace
}  // namespace pimloft
