// SPDX-License-Identifier: MIT
#include "keymapper/key_remap_filter.h"

#include <benchmark/benchmark.h>

#include <array>

namespace pimloft {
namespace {

constexpr std::string_view front = "org.mozilla.firefox";

/// So many rules over the keys of a keyboard, each of which spares some applications.
KeyMappings rulesOverAllKeys(std::int64_t count) {
    KeyMappings rules;
    for (std::int64_t index = 0; index < count; ++index)
        rules.push_back({.fromKeyCode = KeyCode(std::uint16_t(index % 128)),
                         .fromModifiers = KeyFlags(std::uint64_t(index / 128 % 16) << 17),
                         .toKeyCode = Key::home,
                         .toModifiers = KeyFlags::command,
                         .excludedApps = {QStringLiteral("com.apple.Terminal"),
                                          QStringLiteral("org.example.App%1").arg(index % 500)}});
    return rules;
}

/// So many rules on one key, none of which fires where the user is.
KeyMappings rulesOnOneKey(std::int64_t count) {
    KeyMappings rules = rulesOverAllKeys(count);
    for (KeyMapping &rule : rules) {
        rule.fromKeyCode = Key::c;
        rule.excludedApps << QString::fromLatin1(front.data(), qsizetype(front.size()));
    }
    return rules;
}

/// Every key of the keyboard pressed and released with each modifier in turn.
void pressAllKeys(benchmark::State &state, const KeyMappings &rules, bool windowsMode) {
    KeyRemapFilter filter([] {});
    filter.set(rules, windowsMode);
    constexpr std::array flags{KeyFlags::none, KeyFlags::shift, KeyFlags::control,
                               KeyFlags::control | KeyFlags::command, KeyFlags::option};
    std::uint32_t count = 0;
    for (auto _ : state) {
        const auto type = count % 2 ? KeyEventType::up : KeyEventType::down;
        const KeyEvent event{KeyCode(std::uint16_t(count / 2 % 128)), flags[count / 256 % flags.size()],
                             type};
        benchmark::DoNotOptimize(filter.filter(event, front, {}));
        ++count;
    }
}

void decideAKey(benchmark::State &state) {
    pressAllKeys(state, rulesOverAllKeys(state.range(0)), true);
}
BENCHMARK(decideAKey)->Arg(0)->Arg(100)->Arg(10'000);

void decideAKeyThatAllRulesAreAbout(benchmark::State &state) {
    KeyRemapFilter filter([] {});
    filter.set(rulesOnOneKey(state.range(0)), true);
    constexpr auto all = KeyFlags::shift | KeyFlags::control | KeyFlags::option | KeyFlags::command;
    for (auto _ : state)
        benchmark::DoNotOptimize(filter.filter({Key::c, all, KeyEventType::down}, front, {}));
}
BENCHMARK(decideAKeyThatAllRulesAreAbout)->Arg(0)->Arg(100)->Arg(10'000);

/// What a change of the settings costs beside taking the keyboard again.
void prepareRules(benchmark::State &state) {
    const KeyMappings rules = rulesOverAllKeys(state.range(0));
    KeyRemapFilter filter([] {});
    for (auto _ : state)
        filter.set(rules, true);
}
BENCHMARK(prepareRules)->Arg(100)->Arg(10'000);

}  // namespace
}  // namespace pimloft
