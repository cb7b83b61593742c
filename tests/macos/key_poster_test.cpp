// SPDX-License-Identifier: MIT
#include "platform/events/mac_key_poster.h"

#include "fake_events.h"
#include "mac_test.h"

namespace pimloft::test {

namespace {

class MacKeyPosterTest : public MacTest {
protected:
    MacKeyPoster poster_{[] { mac::note("end typing"); }};
};

TEST_F(MacKeyPosterTest, pressesAndReleasesTheKeyWithCommandAndNothingElse) {
    poster_.post(Key::v, KeyFlags::command);
    EXPECT_EQ(log(), "end typing\n"
                     "post down 9, flags 0x100000, source 1, at location 0\n"
                     "post up 9, flags 0x100000, source 1, at location 0\n");
}

TEST_F(MacKeyPosterTest, pressesAKeyWithoutModifiersWhateverTheUserHolds) {
    poster_.post(Key::tab, KeyFlags::none);
    EXPECT_EQ(log(), "end typing\n"
                     "post down 48, flags 0x0, source 1, at location 0\n"
                     "post up 48, flags 0x0, source 1, at location 0\n");
}

TEST_F(MacKeyPosterTest, skipsEventsThatCannotBeMade) {
    mac::setEventsCanBeMade(false);
    poster_.post(Key::v, KeyFlags::command);
    EXPECT_EQ(log(), "end typing\n");
}

}  // namespace

}  // namespace pimloft::test
