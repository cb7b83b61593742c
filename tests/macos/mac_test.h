// SPDX-License-Identifier: MIT
#pragma once

#include "fake_mac.h"
#include "support/qt_printers.h"

#include <gmock/gmock.h>

#include <map>
#include <optional>
#include <string>

namespace pimloft::test {

/// A test on a system of its own. When everything of the test is gone, nothing of it may be left there, and
/// nothing may have been done that a real one would not forgive.
class MacTest : public testing::Test {
protected:
    MacTest();
    ~MacTest() override;

    /// What was asked of the system since the last call, one line each.
    static std::string log() { return mac::takeLog(); }
    /// What is queued happens.
    static void runQueue();

private:
    // What an earlier test has left behind is that test's failure.
    std::map<std::string, int> ownedBefore_;
    int objectsBefore_ = 0;
};

}  // namespace pimloft::test
