// SPDX-License-Identifier: MIT
#include "base/dirs.h"
#include "mac_test.h"
#include "platform/appearance/appearance.h"
#include "platform/instance/instance.h"
#include "platform/platform.h"
#include "platform/preferences/preferences.h"

#include "fake_preferences.h"

#include <QProcessEnvironment>
#include <QTemporaryDir>

namespace pimloft::test {

namespace {

class MacHostTest : public MacTest {};

TEST_F(MacHostTest, isPossibleOnEveryDesktop) {
    EXPECT_EQ(prepareDesktop(), std::nullopt);
}

TEST_F(MacHostTest, livesWithoutADockIcon) {
    const auto host = createHost({});
    EXPECT_THAT(log(), testing::HasSubstr("activation policy 1\n"));
}

TEST_F(MacHostTest, hasTheSystemsServices) {
    const auto host = createHost({});
    host->platform().preferences.set(QStringLiteral("pimloft.general.launchAtLogin"), true);
    EXPECT_EQ(mac::stored("pimloft.general.launchAtLogin"), "true");
}

TEST_F(MacHostTest, keepsItsFilesWithTheUsersApplicationSupport) {
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("HOME"), QStringLiteral("/Users/u"));
    environment.insert(QStringLiteral("TMPDIR"), QStringLiteral("/var/folders/xy/T/"));
    const Dirs dirs = hostDirs(environment);
    EXPECT_EQ(dirs.support, QStringLiteral("/Users/u/Library/Application Support/Pimloft"));
    EXPECT_EQ(dirs.runtime, QStringLiteral("/var/folders/xy/T/"));
}

TEST_F(MacHostTest, isTheOnlyInstance) {
    const QTemporaryDir runtime;
    const auto first = claimInstance(runtime.path(), {});
    EXPECT_TRUE(first);
    EXPECT_FALSE(claimInstance(runtime.path(), {}));
}

}  // namespace

}  // namespace pimloft::test
