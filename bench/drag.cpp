// SPDX-License-Identifier: MIT
#include "bare_window.h"
#include "measures.h"
#include "process_figures.h"
#include "stage.h"

namespace pimloft::bench {

namespace {

constexpr QPoint inside(700, 500);
constexpr QPoint atTheLeft(2, 500);
constexpr QRect leftHalf(0, 0, 800, 1000);
/// On the outline of the overlay over the left half, where no window is in these runs.
constexpr QPoint onTheOutline(1, 900);

const QString title = QStringLiteral("Measured");

xcb_window_t openClient(Stage &stage, const QString &kind) {
    if (kind == QLatin1String("xterm"))
        return stage.openWindow(kind,
                                {QStringLiteral("-T"), title, QStringLiteral("-fa"),
                                 QStringLiteral("DejaVu Sans Mono"), QStringLiteral("-e"),
                                 QStringLiteral("cat")},
                                title);
    return stage.openWindow(QStringLiteral(CLIENTS "/") + kind + QStringLiteral("_client"), {title}, title);
}

void takeHold(Stage &stage, xcb_window_t window) {
    const QRect start(500, 300, 640, 400);
    stage.desktop.place(window, start);
    test::waitUntil([&] { return stage.desktop.visibleFrame(window).topLeft() == start.topLeft(); });
    stage.hands.moveTo(stage.desktop.titleBar(window));
    stage.hands.leftDown();
    stage.hands.glideTo(inside);
}

}  // namespace

namespace {

void measureBareWindow(Table &table, Extent extent) {
    Stage stage;
    const BareWindow window(onTheOutline.y() - 50, 100);
    const auto pixel = [&] { return stage.desktop.pixel(onTheOutline); };
    stage.hands.moveTo(inside);
    const QRgb without = pixel();
    Figure shown{QStringLiteral("drag event to first visible overlay frame"),
                 QStringLiteral("ms"),
                 {},
                 {},
                 QStringLiteral("a bare window")};
    for (int run = 0; run < (extent.quick ? 10 : 100); ++run) {
        stage.hands.moveTo(atTheLeft);
        shown.samples.push_back(millisecondsUntil([&] { return pixel() != without; }));
        stage.hands.moveTo(inside);
        millisecondsUntil([&] { return pixel() == without; });
    }
    table.add(shown);
}

}  // namespace

void measureDrag(Table &table, Extent extent) {
    measureBareWindow(table, extent);
    Stage stage;
    const pid_t process = stage.startPimloft().pid();
    takeHold(stage, openClient(stage, QStringLiteral("qt")));

    Figure overlay{QStringLiteral("drag event to first visible overlay frame"), QStringLiteral("ms"), 16, {}};
    const auto isGone = [&] { return stage.desktop.unmanagedWindows(QStringLiteral("pimloft")).empty(); };
    const auto pixel = [&] { return stage.desktop.pixel(onTheOutline); };
    const int runs = extent.quick ? 10 : 100;
    for (int run = 0; run < runs; ++run) {
        const QRgb before = pixel();
        stage.hands.moveTo(atTheLeft);
        overlay.samples.push_back(millisecondsUntil([&] { return pixel() != before; }));
        stage.hands.moveTo(inside);
        test::waitUntil(isGone);
    }
    table.add(overlay);

    Figure cost{QStringLiteral("CPU in a drag of 1000 events per second"), QStringLiteral("%"), 1, {}};
    for (int run = 0; run < (extent.quick ? 2 : 10); ++run) {
        const Activity before = activityOf(process);
        QElapsedTimer elapsed;
        elapsed.start();
        stage.hands.glideTo({400, 400}, 500);
        stage.hands.glideTo(inside, 500);
        const double seconds = double(elapsed.nsecsElapsed()) / 1e9;
        cost.samples.push_back(100 * (activityOf(process).cpuSeconds - before.cpuSeconds) / seconds);
    }
    table.add(cost);
    stage.hands.leftUp();
}

void measurePlacement(Table &table, Extent extent) {
    for (const QString &kind : {QStringLiteral("xterm"), QStringLiteral("gtk"), QStringLiteral("qt")}) {
        Stage stage;
        stage.startPimloft();
        const xcb_window_t window = openClient(stage, kind);
        const QSize step = stage.desktop.sizeIncrement(window);
        const auto isPlaced = [&] {
            const QRect frame = stage.desktop.visibleFrame(window);
            return frame.topLeft() == leftHalf.topLeft() && leftHalf.width() - frame.width() < step.width() &&
                   leftHalf.height() - frame.height() < step.height();
        };
        Figure figure{QStringLiteral("release to exact frame, %1").arg(kind), QStringLiteral("ms"), 60, {}};
        const int runs = extent.quick ? 5 : 40;
        for (int run = 0; run < runs; ++run) {
            takeHold(stage, window);
            stage.hands.glideTo(atTheLeft);
            test::waitUntil(
                [&] { return !stage.desktop.unmanagedWindows(QStringLiteral("pimloft")).empty(); });
            stage.hands.leftUp();
            figure.samples.push_back(millisecondsUntil(isPlaced));
        }
        table.add(figure);
    }
}

}  // namespace pimloft::bench
