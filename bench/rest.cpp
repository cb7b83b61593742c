// SPDX-License-Identifier: MIT
#include "measures.h"
#include "process_figures.h"
#include "stage.h"

#include <chrono>
#include <thread>

namespace pimloft::bench {

namespace {

using namespace std::chrono_literals;

// Here waiting is what is measured.
void rest(std::chrono::milliseconds time) {
    std::this_thread::sleep_for(time);
}

void addMemory(Table &table, const QString &when, std::optional<double> budget, pid_t process) {
    const Memory memory = memoryOf(process);
    table.add({when + QStringLiteral(", resident"), QStringLiteral("MB"), budget, {memory.resident}});
    table.add({when + QStringLiteral(", proportional"), QStringLiteral("MB"), {}, {memory.proportional}});
    table.add({when + QStringLiteral(", private"), QStringLiteral("MB"), {}, {memory.privately}});
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
    Stage stage;
    const pid_t process = stage.startPimloft().pid();
    rest(2s);
    addMemory(table, QStringLiteral("idle memory"), 45, process);

    const auto span = extent.quick ? 3s : 10s;
    const Activity before = activityOf(process);
    rest(span);
    const Activity after = activityOf(process);
    const auto seconds = double(span.count());
    table.add({QStringLiteral("idle wake-ups per second"),
               QStringLiteral("1/s"),
               0,
               {(after.wakeUps - before.wakeUps) / seconds}});
    table.add({QStringLiteral("idle share of a core"),
               QStringLiteral("%"),
               0.1,
               {100 * (after.cpuSeconds - before.cpuSeconds) / seconds}});

    useTheWindows(stage);
    addMemory(table, QStringLiteral("right after all windows were closed"), {}, process);
    if (extent.quick)
        return;
    rest(65s);
    addMemory(table, QStringLiteral("60 s after all windows were closed"), 65, process);
}

}  // namespace pimloft::bench
