// SPDX-License-Identifier: MIT
#include "platform/x11/x11_keymap.h"
#include "platform/x11/x11_session.h"
#include "support/desktop_session.h"

#include <linux/input-event-codes.h>

#include <gtest/gtest.h>

#include <set>

namespace pimloft {
namespace {

using namespace test;

TEST(KeyPositions, standInTheOrderOfTheKeyCodesWithoutDoubles) {
    for (std::size_t i = 1; i < keyPositions.size(); ++i)
        EXPECT_LT(keyPositions[i - 1].key, keyPositions[i].key);
    std::set<std::string> names;
    std::set<int> numbers;
    for (const KeyPosition &position : keyPositions) {
        EXPECT_TRUE(names.insert(position.name).second) << position.name;
        EXPECT_TRUE(numbers.insert(position.kernel).second) << position.name;
    }
}

TEST(KeyPositions, everyLetterStandsOnOnePosition) {
    std::string letters;
    for (const KeyPosition &position : keyPositions)
        if (position.letter)
            letters += position.letter;
    std::sort(letters.begin(), letters.end());
    EXPECT_EQ(letters, "abcdefghijklmnopqrstuvwxyz");
}

TEST(KeyPositions, holdTheKeysThatTheProgramSpeaksOf) {
    const auto kernel = [](KeyCode key) {
        for (const KeyPosition &position : keyPositions)
            if (position.key == key)
                return int(position.kernel);
        return 0;
    };
    const std::pair<KeyCode, int> keys[] = {{Key::x, KEY_X},
                                            {Key::c, KEY_C},
                                            {Key::v, KEY_V},
                                            {Key::digit1, KEY_1},
                                            {Key::digit2, KEY_2},
                                            {Key::digit3, KEY_3},
                                            {Key::digit4, KEY_4},
                                            {Key::digit5, KEY_5},
                                            {Key::digit6, KEY_6},
                                            {Key::rightShift, KEY_RIGHTSHIFT},
                                            {Key::leftArrow, KEY_LEFT},
                                            {Key::rightArrow, KEY_RIGHT},
                                            {Key::downArrow, KEY_DOWN},
                                            {Key::upArrow, KEY_UP}};
    for (const auto &[key, number] : keys)
        EXPECT_EQ(kernel(key), number) << int(key);
}

TEST(X11Keymap, everyPositionHasTheNumberOfTheKernelOnAUsualServer) {
    X11Session session;
    const X11Keymap map = X11Keymap::read(session.connection());
    for (const KeyPosition &position : keyPositions)
        EXPECT_EQ(map.keycode(position.key), position.kernel + 8) << position.name;
    EXPECT_EQ(map.keycode(KeyCode{63}), 0);
}

TEST(X11Keymap, onAServerWithOtherNumbersThePositionIsFoundByName) {
    currentSession().run(QStringLiteral("setxkbmap"),
                         {QStringLiteral("-keycodes"), QStringLiteral("xfree86")});
    X11Session session;
    const X11Keymap map = X11Keymap::read(session.connection());
    EXPECT_EQ(map.keycode(Key::leftArrow), 100);
    EXPECT_EQ(map.keycode(Key::v), 55);
}

TEST(X11Keymap, modifiersAreFoundByWhatTheyMean) {
    X11Session session;
    const X11Keymap map = X11Keymap::read(session.connection());
    EXPECT_EQ(map.mask(CarbonModifiers::command), XCB_MOD_MASK_4);
    EXPECT_EQ(map.mask(CarbonModifiers::option), XCB_MOD_MASK_1);
    EXPECT_EQ(map.mask(CarbonModifiers::control | CarbonModifiers::shift),
              XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_SHIFT);
    EXPECT_EQ(map.lockVariants(), (std::vector<std::uint16_t>{0, XCB_MOD_MASK_LOCK, XCB_MOD_MASK_2,
                                                              XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2}));
}

TEST(X11Keymap, withoutADisplayItIsTheUsualMapOfAPc) {
    xcb_connection_t *nowhere = xcb_connect(":no such display", nullptr);
    const X11Keymap map = X11Keymap::read(nowhere);
    xcb_disconnect(nowhere);
    EXPECT_EQ(map.keycode(Key::v), KEY_V + 8);
    EXPECT_EQ(map.mask(CarbonModifiers::command), XCB_MOD_MASK_4);
}

}  // namespace
}  // namespace pimloft
