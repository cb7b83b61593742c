// SPDX-License-Identifier: MIT
#include "measures.h"
#include "stage.h"

#include <QFileInfo>

namespace pimloft::bench {

void measureCapture(Table &table, Extent extent) {
    Stage stage;
    stage.startPimloft();
    const QString history = stage.session.home() + QStringLiteral("/data/Pimloft/clipboard_history.json");
    // The clipboard is looked at twice a second; half of that is the least there is on average.
    Figure recorded{
        QStringLiteral("copy in another program until it is recorded"), QStringLiteral("ms"), {}, {}};
    for (int run = 0; run < (extent.quick ? 3 : 20); ++run) {
        const qint64 before = QFileInfo(history).size();
        QElapsedTimer elapsed;
        elapsed.start();
        copyText(stage, QStringLiteral("Copied %1").arg(run));
        millisecondsUntil([&] { return QFileInfo(history).size() > before; });
        recorded.samples.push_back(double(elapsed.nsecsElapsed()) / 1e6);
    }
    table.add(recorded);
}

}  // namespace pimloft::bench
