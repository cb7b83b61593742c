// SPDX-License-Identifier: MIT
#include "measures.h"
#include "process_figures.h"
#include "stage.h"

#include "support/sound_server.h"

#include <chrono>
#include <utility>

namespace pimloft::bench {

namespace {

using namespace std::chrono_literals;

/// Of the program and of the guard that it started.
void addMemory(Table &table, const QString &when, std::optional<double> budget, pid_t process) {
    Memory memory = memoryOf(process);
    for (const pid_t child : childrenOf(process)) {
        const Memory more = memoryOf(child);
        memory.resident += more.resident;
        memory.proportional += more.proportional;
        memory.privately += more.privately;
    }
    table.add({when + QStringLiteral(", resident"), QStringLiteral("MB"), budget, {memory.resident}});
    table.add({when + QStringLiteral(", proportional"), QStringLiteral("MB"), {}, {memory.proportional}});
    table.add({when + QStringLiteral(", private"), QStringLiteral("MB"), {}, {memory.privately}});
}

/// How often in this time it woke up to do something, of which each wait for the X server's answer is a part.
int wakeUpsIn(std::chrono::milliseconds span, pid_t process) {
    constexpr auto step = 10ms;
    int count = 0;
    bool wasAwake = false;
    double before = activityOf(process).sleeps;
    for (auto passed = 0ms; passed < span; passed += step) {
        rest(step);
        const double now = activityOf(process).sleeps;
        const bool isAwake = std::exchange(before, now) != now;
        count += isAwake && !wasAwake;
        wasAwake = isAwake;
    }
    return count;
}

/// Opens and closes every window that a user opens: the panel and the settings.
void useTheWindows(Stage &stage) {
    const QString windowClass = QStringLiteral("pimloft");
    test::launch(stage.session, {});
    if (!test::waitUntil([&] { return !stage.desktop.unmanagedWindows(windowClass).empty(); }))
        qFatal("the panel does not open");
    stage.hands.tap(KEY_ESC);
    if (!test::waitUntil([&] { return stage.desktop.unmanagedWindows(windowClass).empty(); }))
        qFatal("the panel does not close");
    test::launch(stage.session, {QStringLiteral("--settings")});
    if (!test::waitUntil([&] { return !stage.desktop.windowsOf(windowClass).empty(); }))
        qFatal("the settings do not open");
    stage.desktop.close(stage.desktop.windowsOf(windowClass).front());
    if (!test::waitUntil([&] { return stage.desktop.windowsOf(windowClass).empty(); }))
        qFatal("the settings do not close");
}

}  // namespace

void measureRest(Table &table, Extent extent) {
    // Without one the program would look for it again and again.
    test::SoundServer sound(test::SoundServer::Kind::pulseAudio);
    sound.start();
    // Mapped keys are what the guard runs for.
    Stage stage({{QStringLiteral("pimloft.keymapper.preset.Windows Mode"), true}});
    const pid_t process = stage.startPimloft().pid();
    if (!test::waitUntil([&] { return !childrenOf(process).empty(); }))
        qFatal("the guard does not run");
    rest(2s);
    addMemory(table, QStringLiteral("idle memory"), 45, process);

    const auto span = extent.quick ? 3s : 10s;
    const double before = activityOf(process).cpuSeconds;
    rest(span);
    const double spent = activityOf(process).cpuSeconds - before;
    const auto seconds = double(span.count());
    // The clipboard is looked at twice a second, the running programs every two seconds.
    constexpr double polls = 2 + 0.5;
    table.add({QStringLiteral("idle wake-ups per second"),
               QStringLiteral("1/s"),
               polls,
               {wakeUpsIn(span, process) / seconds}});
    table.add({QStringLiteral("idle share of a core"), QStringLiteral("%"), 0.1, {100 * spent / seconds}});

    useTheWindows(stage);
    addMemory(table, QStringLiteral("right after all windows were closed"), {}, process);
    if (extent.quick)
        return;
    rest(65s);
    addMemory(table, QStringLiteral("60 s after all windows were closed"), 65, process);
}

}  // namespace pimloft::bench
