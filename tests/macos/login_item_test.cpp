// SPDX-License-Identifier: MIT
#include "platform/loginitem/mac_login_item.h"

#include "fake_appkit.h"
#include "mac_test.h"

namespace pimloft::test {

namespace {

class MacLoginItemTest : public MacTest {
protected:
    MacLoginItem item_;
};

TEST_F(MacLoginItemTest, registersTheMainApplication) {
    EXPECT_EQ(item_.registerMainApplication(), std::nullopt);
    EXPECT_TRUE(mac::loginItem().isRegistered);
    EXPECT_EQ(log(), "register\n");
}

TEST_F(MacLoginItemTest, unregistersTheMainApplication) {
    mac::loginItem().isRegistered = true;
    EXPECT_EQ(item_.unregisterMainApplication(), std::nullopt);
    EXPECT_FALSE(mac::loginItem().isRegistered);
    EXPECT_EQ(log(), "unregister\n");
}

TEST_F(MacLoginItemTest, takesWhatIsSoAlreadyAsASuccess) {
    EXPECT_EQ(item_.unregisterMainApplication(), std::nullopt);
    item_.registerMainApplication();
    EXPECT_EQ(item_.registerMainApplication(), std::nullopt);
}

TEST_F(MacLoginItemTest, describesAFailure) {
    mac::loginItem().refusal = "Operation not permitted";
    EXPECT_EQ(item_.registerMainApplication(), QStringLiteral("Operation not permitted"));
    EXPECT_EQ(item_.unregisterMainApplication(), QStringLiteral("Operation not permitted"));
}

}  // namespace

}  // namespace pimloft::test
