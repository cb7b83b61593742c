// SPDX-License-Identifier: MIT
#include "measures.h"
#include "stage.h"

#include "platform/events/x11_key_poster.h"
#include "platform/filemanager/file_managers.h"
#include "platform/scripting/finder_script.h"
#include "platform/scripting/finder_scripts.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QStandardPaths>

#include <cstdio>
#include <optional>

namespace pimloft::bench {

namespace {

/// How long a script may take, in milliseconds.
constexpr double longestScript = 500;

struct Manager {
    const char *program;
    const char *newWindow;
    bool startsElsewhere = false;  ///< its files get the keyboard only when the user goes there
};
constexpr Manager managers[] = {
    {"thunar", nullptr},         {"pcmanfm", "--new-win"}, {"pcmanfm-qt", "--new-window"},
    {"nemo", "--no-desktop"},    {"caja", "--no-desktop"}, {"nautilus", "--new-window", true},
    {"dolphin", "--new-window"},
};

/// The services that the scripts need, in this process.
struct Bridge {
    /// Qt's own would be that of the first desktop for ever.
    struct Bus {
        QDBusConnection connection = QDBusConnection::connectToBus(
            qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("bridge"));
        ~Bus() { QDBusConnection::disconnectFromBus(connection.name()); }
    };

    Bus bus;
    X11Session session;
    X11RawInput input{session};
    X11Keyboard keyboard{session, input};
    X11Pasteboard pasteboard{[](ProcessId) { return std::nullopt; }};
    X11KeyPoster keys{keyboard, [] {}, [] { return ShortcutChord::control; }};
    FinderScripts scripts;

    explicit Bridge(const QString &home)
        : scripts(std::make_unique<FileManagers>(
              FileManagers::Surroundings{.session = session,
                                         .pasteboard = pasteboard,
                                         .keys = keys,
                                         .bus = bus.connection,
                                         .isFileManager = [](xcb_window_t) { return true; },
                                         .home = QFile::encodeName(home),
                                         .desktop = [home] { return QFile::encodeName(home); }})) {}

    struct Answer {
        std::size_t items;
        double milliseconds;
    };
    Answer run(const QString &script) {
        std::optional<ScriptResult> result;
        QElapsedTimer elapsed;
        elapsed.start();
        scripts.handle(script, [&](ScriptResult answer) { result = std::move(answer); });
        while (!result)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return {result->items.size(), double(elapsed.nsecsElapsed()) / 1e6};
    }
};

std::unique_ptr<QProcess> open(Stage &stage, const Manager &manager, const QString &folder) {
    QStringList command{QStringLiteral("-u"), QStringLiteral("NO_AT_BRIDGE"),
                        QStringLiteral("GSK_RENDERER=cairo"), QLatin1String(manager.program)};
    if (manager.newWindow)
        command << QLatin1String(manager.newWindow);
    auto process = stage.session.start(QStringLiteral("env"), command << folder);
    const auto window = [&stage]() -> xcb_window_t {
        for (const xcb_window_t each : stage.desktop.windows())
            if (stage.desktop.title(each).startsWith(QStringLiteral("measured")))
                return each;
        return XCB_NONE;
    };
    const bool isOpen = test::waitUntil(
        [&] {
            if (window() != XCB_NONE)
                stage.desktop.activate(window());
            return window() != XCB_NONE && stage.desktop.activeWindow() == window();
        },
        40000);
    if (!isOpen)
        qFatal("a file manager shows no window");
    return process;
}

void measureManager(Table &table, const Manager &manager, int rounds) {
    Stage stage;
    const QString folder = stage.session.home() + QStringLiteral("/measured");
    QDir().mkpath(folder);
    constexpr std::size_t fileCount = 3;
    for (std::size_t i = 0; i < fileCount; ++i)
        QFile(folder + QStringLiteral("/%1.txt").arg(i)).open(QIODevice::WriteOnly);
    stage.session.startAccessibility();
    const auto process = open(stage, manager, folder);
    Bridge bridge(stage.session.home());
    const bool isSelected = test::waitUntil(
        [&] {
            if (manager.startsElsewhere)
                stage.hands.click(stage.desktop.visibleFrame(stage.desktop.activeWindow()).bottomRight() -
                                  QPoint(60, 90));
            stage.hands.chord({KEY_LEFTCTRL, KEY_A});
            return bridge.run(finderSelectionScript()).items == fileCount;
        },
        20000);
    if (!isSelected) {
        std::printf("%s does not select its files and is not measured\n", manager.program);
        return;
    }
    const QString name = QLatin1String(manager.program);
    Figure selection{name + QStringLiteral(": selected files"), QStringLiteral("ms"), longestScript, {}};
    Figure target{name + QStringLiteral(": shown folder"), QStringLiteral("ms"), longestScript, {}};
    for (int i = 0; i < rounds; ++i) {
        selection.samples.push_back(bridge.run(finderSelectionScript()).milliseconds);
        target.samples.push_back(bridge.run(finderTargetScript()).milliseconds);
    }
    table.add(selection);
    table.add(target);
}

}  // namespace

void measureFinder(Table &table, Extent extent) {
    for (const Manager &manager : managers)
        if (!QStandardPaths::findExecutable(QLatin1String(manager.program)).isEmpty())
            measureManager(table, manager, extent.quick ? 20 : 100);
}

}  // namespace pimloft::bench
