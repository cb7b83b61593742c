// SPDX-License-Identifier: MIT
#include "finderfix/move_alerts.h"
#include "platform/fake_desktop.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

class MoveAlertsTest : public testing::Test {
protected:
    FakeDesktop desktop;
    MoveAlerts alerts{desktop.dialogs};
};

TEST_F(MoveAlertsTest, noPermissionHasItsText) {
    alerts.show({QStringLiteral("a.txt"), {FileProblem::noPermission, QStringLiteral("EACCES")}});
    EXPECT_EQ(desktop.log(), "alert: Could not move \"a.txt\" | Permission denied. The file may be locked or "
                             "you may not have access. | [OK]\n");
}

TEST_F(MoveAlertsTest, noSpaceHasItsText) {
    alerts.show({QStringLiteral("a.txt"), {FileProblem::noSpace, QStringLiteral("ENOSPC")}});
    EXPECT_EQ(desktop.log(),
              "alert: Could not move \"a.txt\" | Not enough disk space at the destination. | [OK]\n");
}

TEST_F(MoveAlertsTest, everythingElseHasTheErrorsOwnText) {
    alerts.show({QStringLiteral("%1 \"<b>\""), {FileProblem::other, QStringLiteral("Input/output error")}});
    EXPECT_EQ(desktop.log(), "alert: Could not move \"%1 \"<b>\"\" | Input/output error | [OK]\n");
}

TEST_F(MoveAlertsTest, comeOneAfterTheOther) {
    for (const char *name : {"a", "b", "c"})
        alerts.show({QString::fromUtf8(name), {FileProblem::other, QStringLiteral("why")}});
    EXPECT_EQ(desktop.log(), "alert: Could not move \"a\" | why | [OK]\n");
    desktop.dialogs.closeAlert();
    EXPECT_EQ(desktop.log(), "alert: Could not move \"b\" | why | [OK]\n");
    desktop.dialogs.closeAlert();
    EXPECT_EQ(desktop.log(), "alert: Could not move \"c\" | why | [OK]\n");
    desktop.dialogs.closeAlert();
    alerts.show({QStringLiteral("d"), {FileProblem::other, QStringLiteral("why")}});
    EXPECT_EQ(desktop.log(), "alert: Could not move \"d\" | why | [OK]\n");
}

}  // namespace
}  // namespace pimloft
