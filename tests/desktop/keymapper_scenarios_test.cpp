// SPDX-License-Identifier: MIT
// The stories of the keyboard with the built program, keys that are really pressed, and windows that get
// them.
#include "desktop/support/key_stories.h"

namespace pimloft::test {
namespace {

class KeyStories : public KeyStoryTest, public testing::WithParamInterface<const char *> {};

TEST_P(KeyStories, goOnADesktopAsWritten) {
    const auto stories = readScenarios(QStringLiteral(SCENARIOS "/%1.txt").arg(QLatin1String(GetParam())));
    int played = 0;
    for (const Scenario &story : stories) {
        if (!isPlayableOnDesktop(story))
            continue;
        SCOPED_TRACE(story.title.toStdString());
        play(story);
        ++played;
    }
    EXPECT_GE(played, 4) << "hardly a story can be played here";
}

INSTANTIATE_TEST_SUITE_P(Keyboard, KeyStories,
                         testing::Values("windows-mode", "rules", "presets", "panic", "lifecycle"),
                         [](const auto &info) {
                             std::string name = info.param;
                             std::erase(name, '-');
                             return name;
                         });

}  // namespace
}  // namespace pimloft::test
