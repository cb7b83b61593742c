// SPDX-License-Identifier: MIT
#include "mac_test.h"

#include "fake_appkit.h"

#include <QCoreApplication>

#include <array>

// What Foundation makes once it keeps for ever.
extern "C" const char *__asan_default_options() {
    return "detect_leaks=0";
}

namespace pimloft::test {

namespace {

/// Foundation would look for the user's own settings.
[[maybe_unused]] const bool hasOwnFolder = qputenv("GNUSTEP_CONFIG_FILE", GNUSTEP_CONFIG);

constexpr std::array ownedClasses{"PimloftPanel", "PimloftAppearanceObserver", "FakeScript", "FakeMonitor",
                                  "FakeToken", "NSView"};

std::string leftovers() {
    std::string text;
    for (const char *name : ownedClasses)
        if (const int count = mac::liveInstances(name))
            text += std::to_string(count) + ' ' + name + '\n';
    return text;
}

}  // namespace

MacTest::MacTest() {
    mac::reset();
}

MacTest::~MacTest() {
    // What the system itself keeps is its own.
    mac::resetPreferences();
    EXPECT_EQ(mac::problems(), "");
    EXPECT_EQ(mac::liveObjects(), 0) << "objects of the C frameworks that nobody has released";
    EXPECT_EQ(mac::liveCopyStates(), 0);
    EXPECT_EQ(mac::registrations(), 0) << "observers and monitors that are still registered";
    EXPECT_EQ(leftovers(), "") << "objects that nobody has released";
}

void MacTest::runQueue() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents();
}

}  // namespace pimloft::test
