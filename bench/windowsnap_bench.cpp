// SPDX-License-Identifier: MIT
#include "app/hotkey_manager.h"
#include "app/settings_manager.h"
#include "platform/fake_desktop.h"
#include "windowsnap/snap_zone.h"
#include "windowsnap/window_snap_engine.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace pimloft {
namespace {

/// So many displays side by side, the first at the origin.
std::vector<Display> displays(std::int64_t count) {
    std::vector<Display> list;
    for (std::int64_t i = 0; i < count; ++i) {
        const QRectF frame(1920.0 * double(i), 0, 1920, 1080);
        list.push_back({DisplayId(std::uint32_t(i + 1)), frame, frame});
    }
    return list;
}

/// The usual event of a drag: the pointer is away from every edge.
void detectInTheMiddle(benchmark::State &state) {
    const auto list = displays(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(detect({960, 540}, list.front(), 10, list));
}
BENCHMARK(detectInTheMiddle)->Arg(1)->Arg(2)->Arg(8);

/// The dearest one: two edges are touched, and every display is looked at for both.
void detectInACorner(benchmark::State &state) {
    const auto list = displays(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(detect({0, 1080}, list.front(), 10, list));
}
BENCHMARK(detectInACorner)->Arg(1)->Arg(2)->Arg(8);

/// One event of a drag that stays outside of every zone, all of ours included. The budget of a drag with a
/// thousand events a second is 1 % of a core: 10 us each.
void handleADragEvent(benchmark::State &state) {
    FakeDesktop desktop;
    desktop.displays.list = displays(2);
    desktop.windows.open(QStringLiteral("Editor"), ProcessId(1), {100, 100, 800, 600});
    HotkeyManager hotkeys(desktop.hotkeys);
    SettingsManager settings(desktop.preferences, desktop.loginItem);
    WindowSnapEngine engine(desktop.mouse, desktop.displays, desktop.windows, desktop.panels, hotkeys,
                            settings);
    engine.handleMouseEvent({MouseEventType::leftDown, {500, 500}});
    for (auto _ : state)
        engine.handleMouseEvent({MouseEventType::leftDragged, {600, 600}});
}
BENCHMARK(handleADragEvent);

}  // namespace
}  // namespace pimloft
