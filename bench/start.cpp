// SPDX-License-Identifier: MIT
#include "desktop/support/tray_host.h"
#include "measures.h"
#include "stage.h"

#include <algorithm>

namespace pimloft::bench {

void measureStart(Table &table, Extent extent) {
    Figure tray{QStringLiteral("process start to tray icon"), QStringLiteral("ms"), {}, {}};
    Figure shortcuts{QStringLiteral("process start to shortcuts live"), QStringLiteral("ms"), {}, {}};
    Figure both{
        QStringLiteral("process start to tray icon and shortcuts live"), QStringLiteral("ms"), 100, {}};
    Stage stage;
    test::TrayHost host(stage.session.display());
    const int runs = extent.quick ? 5 : 31;
    for (int run = 0; run < runs; ++run) {
        host.forgetIcon();
        QElapsedTimer elapsed;
        elapsed.start();
        const test::Program program(stage.session);
        // Asking stops the server for a moment, so not too often.
        constexpr double pause = 2;
        double lastQuestion = 0;
        double trayTime = 0;
        double shortcutTime = 0;
        while (trayTime == 0 || shortcutTime == 0) {
            const double now = double(elapsed.nsecsElapsed()) / 1e6;
            if (trayTime == 0 && host.hasIcon())
                trayTime = now;
            if (shortcutTime == 0 && now - lastQuestion > pause) {
                lastQuestion = now;
                if (stage.shortcutsAreLive())
                    shortcutTime = now;
            }
            if (now > 10000)
                qFatal("Pimloft does not come up: %s", qPrintable(program.complaints()));
        }
        tray.samples.push_back(trayTime);
        shortcuts.samples.push_back(shortcutTime);
        both.samples.push_back(std::max(trayTime, shortcutTime));
    }
    table.add(both);
    table.add(tray);
    table.add(shortcuts);
}

}  // namespace pimloft::bench
