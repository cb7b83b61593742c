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

constexpr std::array ownedClasses{
    "PimloftPanel", "PimloftAppearanceObserver", "FakeScript", "FakeMonitor", "FakeToken", "NSView"};

std::map<std::string, int> ownedObjects() {
    std::map<std::string, int> counts;
    for (const char *name : ownedClasses)
        counts[name] = mac::liveInstances(name);
    return counts;
}

}  // namespace

MacTest::MacTest() {
    mac::reset();
    ownedBefore_ = ownedObjects();
    objectsBefore_ = mac::liveObjects();
}

MacTest::~MacTest() {
    // What the system itself keeps is its own.
    mac::resetPreferences();
    EXPECT_EQ(mac::problems(), "");
    EXPECT_EQ(mac::liveObjects(), objectsBefore_) << "objects of the C frameworks that nobody has released";
    EXPECT_EQ(mac::liveCopyStates(), 0);
    EXPECT_EQ(mac::registrations(), 0) << "observers and monitors that are still registered";
    EXPECT_EQ(ownedObjects(), ownedBefore_) << "objects that nobody has released";
}

void MacTest::runQueue() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents();
}

}  // namespace pimloft::test
