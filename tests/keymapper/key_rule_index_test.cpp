// SPDX-License-Identifier: MIT
#include "keymapper/key_rule_index.h"

#include "keymapper/rule_text.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <random>

namespace pimloft {
namespace {

/// The rules as they are told: walked in order, the first that fires wins.
std::optional<std::size_t> walk(const KeyMappings &rules, KeyCode key, KeyFlags flags,
                                const QString &frontmost) {
    for (std::size_t index = 0; index < rules.size(); ++index) {
        const KeyMapping &rule = rules[index];
        const bool isExcluded = !frontmost.isEmpty() && rule.excludedApps.contains(frontmost);
        if (!isExcluded && rule.fromKeyCode == key && contains(flags, rule.fromModifiers))
            return index;
    }
    return std::nullopt;
}

/// Random rules over a small world, so that most of them meet.
class World {
public:
    explicit World(unsigned seed) : random_(seed) {}

    KeyMappings rules(int count) {
        KeyMappings list;
        for (int index = 0; index < count; ++index) {
            KeyMapping rule{.fromKeyCode = key(),
                            .fromModifiers = flags(),
                            .toKeyCode = KeyCode(std::uint16_t(index)),
                            .toModifiers = flags()};
            while (below(3) == 0)
                rule.excludedApps << app();
            list.push_back(rule);
        }
        return list;
    }
    KeyCode key() { return KeyCode(std::uint16_t(below(5))); }
    KeyFlags flags() {
        constexpr std::array each{KeyFlags::shift,   KeyFlags::control,  KeyFlags::option,
                                  KeyFlags::command, KeyFlags::function, KeyFlags{1}};
        KeyFlags set{};
        for (const KeyFlags flag : each)
            if (below(3) == 0)
                set = set | flag;
        return set;
    }
    /// Sometimes none, which an exclusion may also name.
    QString app() {
        static const QStringList names{QString(), QStringLiteral("a"), QStringLiteral("b"),
                                       QStringLiteral("c"), QStringLiteral("dé")};
        return names[below(int(names.size()))];
    }
    int below(int limit) { return std::uniform_int_distribution(0, limit - 1)(random_); }

private:
    std::mt19937 random_;
};

TEST(KeyRuleIndex, takesTheEarlierOfTwoRulesThatComeAfterExcludedOnes) {
    const auto rule = [](KeyFlags modifiers, std::uint16_t to, const QStringList &excludedApps) {
        return KeyMapping{.fromKeyCode = KeyCode(9),
                          .fromModifiers = modifiers,
                          .toKeyCode = KeyCode(to),
                          .excludedApps = excludedApps};
    };
    const QStringList a{QStringLiteral("a")};
    const KeyMappings rules{rule({}, 1, a), rule(KeyFlags::shift, 2, a), rule({}, 3, {}),
                            rule(KeyFlags::shift, 4, {})};
    const KeyRuleIndex index(rules);
    const auto *found = index.find(KeyCode(9), KeyFlags::shift, "a");
    ASSERT_TRUE(found);
    EXPECT_EQ(found->toKeyCode, KeyCode(3));
}

TEST(KeyRuleIndex, findsWhatWalkingTheRulesFinds) {
    const auto seed = unsigned(std::chrono::system_clock::now().time_since_epoch().count());
    SCOPED_TRACE("seed " + std::to_string(seed));
    World world(seed);
    for (int round = 0; round < 300; ++round) {
        const KeyMappings rules = world.rules(world.below(40));
        const KeyRuleIndex index(rules);
        for (int event = 0; event < 100; ++event) {
            const KeyCode key = world.key();
            const KeyFlags flags = world.flags();
            const QString app = world.app();
            const auto expected = walk(rules, key, flags, app);
            const std::string identifier = app.toStdString();
            const auto *found = index.find(key, flags, identifier);
            ASSERT_EQ(found != nullptr, expected.has_value())
                << std::uint16_t(key) << ' ' << std::uint64_t(flags) << " in " << identifier << " of\n"
                << test::ruleText(rules);
            if (found) {
                ASSERT_EQ(std::size_t(found->toKeyCode), *expected) << test::ruleText(rules);
            }
        }
    }
}

TEST(KeyRuleIndex, anApplicationWithoutAnIdentifierIsNeverExcluded) {
    const KeyRuleIndex index({KeyMapping{.fromKeyCode = Key::home, .excludedApps = {QString()}}});
    EXPECT_TRUE(index.find(Key::home, {}, ""));
}

TEST(KeyRuleIndex, anEmptyOneFindsNothing) {
    EXPECT_FALSE(KeyRuleIndex().find(Key::home, {}, "a"));
    EXPECT_FALSE(KeyRuleIndex(KeyMappings()).find(Key::home, {}, "a"));
}

TEST(KeyRuleIndex, manyRulesThatLeaveOutTheSameApplicationsAreBuiltQuickly) {
    // Built by comparing each with each this would take minutes.
    QStringList apps;
    for (int app = 0; app < 100; ++app)
        apps << QString::number(app);
    KeyMappings rules(10'000, KeyMapping{.fromKeyCode = Key::home, .excludedApps = apps});
    rules.push_back({.fromKeyCode = Key::home, .toKeyCode = Key::end});
    const KeyRuleIndex index(rules);
    EXPECT_EQ(index.find(Key::home, {}, "50")->toKeyCode, Key::end);
    EXPECT_EQ(index.find(Key::home, {}, "other")->toKeyCode, KeyCode{0});
}

}  // namespace
}  // namespace pimloft
