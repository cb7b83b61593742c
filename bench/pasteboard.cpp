// SPDX-License-Identifier: MIT
#include "measures.h"
#include "process_figures.h"

#include "platform/pasteboard/x11_pasteboard.h"
#include "support/desktop_session.h"

#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>

namespace pimloft::bench {

namespace {

/// The largest picture that is kept, nearly.
constexpr qsizetype pictureSize = 49'000'000;

/// The longest time between two turns of the event loop, in milliseconds, until `condition` holds.
template <typename Condition>
double longestStallUntil(Condition condition) {
    QElapsedTimer sinceTurn;
    qint64 longest = 0;
    QTimer turn;
    QObject::connect(&turn, &QTimer::timeout, [&] {
        longest = std::max(longest, sinceTurn.nsecsElapsed());
        sinceTurn.start();
    });
    turn.start(0);
    sinceTurn.start();
    if (!test::waitUntil(condition))
        qFatal("what is to be measured does not happen");
    return double(longest) / 1e6;
}

std::unique_ptr<QProcess> xclip(const test::DesktopSession &session, const QStringList &arguments) {
    return session.start(QStringLiteral("xclip"),
                         QStringList{QStringLiteral("-selection"), QStringLiteral("clipboard"),
                                     QStringLiteral("-t"), QStringLiteral("image/png")} +
                             arguments);
}

/// One copy by another program, and one paste of it by another again.
struct Round {
    double readStall, readTime, writeStall, memory;
};

Round measureRound(const test::DesktopSession &session, X11Pasteboard &pasteboard) {
    Round round{};
    QObject asker;
    const qint64 before = pasteboard.changeCount();
    const auto owner = xclip(session, {QStringLiteral("-i")});
    owner->write(QByteArray(pictureSize, 'x'));
    owner->closeWriteChannel();
    if (!test::waitUntil([&] { return pasteboard.changeCount() > before; }))
        qFatal("nothing is copied");

    forgetPeak();
    const double atRest = peakMemory();
    QByteArray picture;
    QElapsedTimer elapsed;
    elapsed.start();
    pasteboard.read(pasteboard.changeCount(), {PasteType::png}, pictureSize, &asker,
                    [&](PasteData data) { picture = std::move(data.bytes); });
    round.readStall = longestStallUntil([&] { return !picture.isEmpty(); });
    round.readTime = double(elapsed.nsecsElapsed()) / 1e6;

    pasteboard.write({{PasteType::png, picture}});
    const auto requestor = session.start(
        QStringLiteral("sh"),
        {QStringLiteral("-c"), QStringLiteral("xclip -o -selection clipboard -t image/png | wc -c")});
    round.writeStall = longestStallUntil([&] { return requestor->state() == QProcess::NotRunning; });
    if (requestor->readAll().trimmed().toLongLong() != pictureSize)
        qFatal("the picture is not pasted whole");
    round.memory = peakMemory() - atRest;
    return round;
}

}  // namespace

void measurePasteboard(Table &table, Extent extent) {
    test::DesktopSession session({});
    X11Pasteboard pasteboard([](ProcessId) { return std::nullopt; });
    Figure readStall{QStringLiteral("49 MB picture read, longest stall"), QStringLiteral("ms"), 16, {}};
    Figure readTime{QStringLiteral("49 MB picture read"), QStringLiteral("ms"), {}, {}};
    Figure writeStall{QStringLiteral("49 MB picture pasted, longest stall"), QStringLiteral("ms"), 16, {}};
    Figure memory{QStringLiteral("49 MB picture read and pasted, added memory"),
                  QStringLiteral("MB"),
                  4.0 * double(pictureSize) / 1e6,
                  {}};
    for (int i = 0; i < (extent.quick ? 3 : 10); ++i) {
        const Round round = measureRound(session, pasteboard);
        readStall.samples.push_back(round.readStall);
        readTime.samples.push_back(round.readTime);
        writeStall.samples.push_back(round.writeStall);
        memory.samples.push_back(round.memory);
    }
    for (const Figure &figure : {readStall, readTime, writeStall, memory})
        table.add(figure);
}

}  // namespace pimloft::bench
