// SPDX-License-Identifier: MIT
#include "desktop/support/tray_host.h"
#include "measures.h"
#include "process_figures.h"
#include "stage.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <thread>

namespace pimloft::bench {

namespace {

using namespace std::chrono_literals;

const QString program = QStringLiteral("copyq");

constexpr int entries = 200;

Figure figure(const char *what, const char *unit) {
    return {QString::fromLatin1(what), QString::fromLatin1(unit), {}, {}, QStringLiteral("CopyQ")};
}

/// The same shortcut as ours.
void bindShortcut(const QString &home) {
    const QString folder = home + QStringLiteral("/config/copyq");
    QDir().mkpath(folder);
    QFile file(folder + QStringLiteral("/copyq-commands.ini"));
    if (!file.open(QIODevice::WriteOnly))
        qFatal("no shortcut can be written");
    file.write("[Commands]\n"
               "1\\Name=Show\n"
               "1\\Command=copyq: toggle()\n"
               "1\\IsGlobalShortcut=true\n"
               "1\\GlobalShortcut=meta+shift+v\n"
               "size=1\n");
}

void tell(const Stage &stage, const QString &script) {
    stage.session.run(program, {QStringLiteral("eval"), script});
}

void end(Stage &stage, QProcess &server) {
    stage.session.run(program, {QStringLiteral("exit")});
    server.waitForFinished();
}

void start(Stage &stage, test::TrayHost &host, Table &table, Extent extent) {
    Figure tray = figure("process start to tray icon", "ms");
    for (int run = 0; run < (extent.quick ? 3 : 11); ++run) {
        host.forgetIcon();
        QElapsedTimer elapsed;
        elapsed.start();
        const auto server = stage.session.start(program);
        while (!host.hasIcon())
            if (elapsed.hasExpired(10000))
                qFatal("CopyQ does not come up");
        tray.samples.push_back(double(elapsed.nsecsElapsed()) / 1e6);
        end(stage, *server);
    }
    table.add(tray);
}

/// Of the server and of the process that watches the clipboard for it.
void memory(Table &table, pid_t server) {
    double resident = memoryOf(server).resident;
    double proportional = memoryOf(server).proportional;
    for (const pid_t child : childrenOf(server)) {
        resident += memoryOf(child).resident;
        proportional += memoryOf(child).proportional;
    }
    Figure all = figure("idle memory, resident", "MB");
    all.samples.push_back(resident);
    table.add(all);
    Figure shared = figure("idle memory, proportional", "MB");
    shared.samples.push_back(proportional);
    table.add(shared);
}

void popup(Stage &stage, Table &table, Extent extent) {
    const auto toggle = [&] {
        for (const int key : {KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V})
            stage.hands.press(key);
    };
    const auto letGo = [&] {
        for (const int key : {KEY_V, KEY_LEFTSHIFT, KEY_LEFTMETA})
            stage.hands.release(key);
    };
    // Without a desktop's own panel it is made small and not hidden.
    const auto isOpen = [&] {
        const auto windows = stage.desktop.windowsOf(program);
        return std::find(windows.begin(), windows.end(), stage.desktop.activeWindow()) != windows.end();
    };
    if (!test::waitUntil(
            [&] { return stage.desktop.isKeyTaken(KEY_V, XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_4); }))
        qFatal("CopyQ does not take its shortcut");
    Figure shown = figure("popup, shortcut to first frame, engine alive", "ms");
    for (int run = 0; run < (extent.quick ? 6 : 31); ++run) {
        toggle();
        shown.samples.push_back(millisecondsUntil(isOpen));
        letGo();
        stage.session.run(program, {QStringLiteral("hide")});
        if (!test::waitUntil([&] { return !isOpen(); }))
            qFatal("CopyQ's window does not close");
    }
    table.add(shown);
}

/// From a copy in another program until a script sees it.
void capture(Stage &stage, Table &table, Extent extent) {
    Figure seen = figure("copy in another program until it is recorded", "ms");
    for (int run = 0; run < (extent.quick ? 3 : 20); ++run) {
        const QString text = QStringLiteral("Copied %1").arg(run);
        const auto watcher = stage.session.start(
            program, {QStringLiteral("eval"),
                      QStringLiteral("print('ready'); while (str(read(0)) != '%1') sleep(1)").arg(text)});
        watcher->waitForReadyRead();
        QElapsedTimer elapsed;
        elapsed.start();
        copyText(stage, text);
        watcher->waitForFinished();
        seen.samples.push_back(double(elapsed.nsecsElapsed()) / 1e6);
    }
    table.add(seen);
}

/// As many texts as ours are measured with, one by one; the pace of the last ones.
void add(Stage &stage, Table &table, Extent extent) {
    stage.session.run(program,
                      {QStringLiteral("config"), QStringLiteral("maxitems"), QStringLiteral("10000")});
    const int before = extent.quick ? 2'000 : 9'900;
    const auto adding = [](int from, int count) {
        return QStringLiteral("for (var i = %1; i < %2; ++i) add('Entry ' + i + ' of many: some words')")
            .arg(from)
            .arg(from + count);
    };
    tell(stage, adding(0, before));
    Figure each = figure(extent.quick ? "add to 2,000 texts" : "add to 10,000 texts, disk", "ms");
    constexpr int together = 20;  // the way to the server is not what is measured
    for (int run = 0; run < 5; ++run) {
        QElapsedTimer elapsed;
        elapsed.start();
        tell(stage, adding(before + run * together, together));
        each.samples.push_back(double(elapsed.nsecsElapsed()) / 1e6 / together);
    }
    table.add(each);
}

}  // namespace

void measureCopyQ(Table &table, Extent extent) {
    if (QStandardPaths::findExecutable(program).isEmpty()) {
        std::printf("CopyQ is not installed; its figures are left out.\n");
        return;
    }
    Stage stage;
    bindShortcut(stage.session.home());
    // Without a tray it would not leave the screen.
    test::TrayHost host(stage.session.display());
    start(stage, host, table, extent);
    host.forgetIcon();
    const auto server = stage.session.start(program);
    if (!test::waitUntil([&] {
            return stage.session.run(program, {QStringLiteral("eval"), QStringLiteral("'here'")}) ==
                   QLatin1String("here\n");
        }))
        qFatal("CopyQ does not answer");
    if (!test::waitUntil([&] { return host.hasIcon(); }))
        qFatal("CopyQ shows no icon");
    tell(stage, QStringLiteral("for (var i = 0; i < %1; ++i) add('Entry ' + i)").arg(entries));
    std::this_thread::sleep_for(2s);  // as long as our own rests before it is looked at
    memory(table, pid_t(server->processId()));
    popup(stage, table, extent);
    capture(stage, table, extent);
    add(stage, table, extent);
    end(stage, *server);
}

}  // namespace pimloft::bench
