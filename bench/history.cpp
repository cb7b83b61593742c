// SPDX-License-Identifier: MIT
#include "app/settings_keys.h"
#include "clipboard/clipboard_store.h"
#include "clipboard/entries.h"
#include "desktop/support/tray_host.h"
#include "measures.h"
#include "platform/fake_desktop.h"
#include "stage.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <fstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace pimloft::bench {

namespace {

constexpr double megabyte = 1e6;
const QString fileName = QStringLiteral("/clipboard_history.json");

struct Place {
    const char *name;
    QString folder;
    bool hasBudget;  ///< budgets hold where the disk's own speed plays no part
};

/// Where histories are kept in turn.
std::vector<Place> places() {
    return {{"RAM disk", QStringLiteral("/dev/shm"), true}, {"disk", QDir::tempPath(), false}};
}

template <typename Action>
double milliseconds(Action action) {
    QElapsedTimer elapsed;
    elapsed.start();
    action();
    return double(elapsed.nsecsElapsed()) / 1e6;
}

/// A history in a folder of its own.
struct History {
    explicit History(const QString &where) : folder(where + QStringLiteral("/pimloft-bench-XXXXXX")) {
        desktop.preferences.stored[SettingsKeys::clipboardMaxItems] = 1'000'000;
        reload();
    }
    void reload() {
        store.emplace(desktop.preferences, folder.path());
        store->items();  // a long history is read on a thread
    }
    double megabytes() const { return double(QFileInfo(folder.path() + fileName).size()) / megabyte; }

    /// Writes a file by another way than that which is measured.
    void fill(const std::vector<ClipboardItem> &items) {
        HistoryFile file(folder.path() + fileName);
        std::vector<HistoryPlace> all(items.size());
        file.save(items.size(), [&](std::size_t index) -> HistoryFile::Entry {
            return {items[index], all[index]};
        });
        reload();
    }

    QTemporaryDir folder;
    FakeDesktop desktop;
    std::optional<ClipboardStore> store;
};

std::vector<ClipboardItem> texts(int count) {
    std::vector<ClipboardItem> items;
    for (int index = 0; index < count; ++index)
        items.push_back(
            test::text(QStringLiteral("Entry %1 of many: some words as people copy them, a/path/and a link.")
                           .arg(index)));
    return items;
}

/// Pictures that make a file of about so many megabytes.
std::vector<ClipboardItem> pictures(int megabytes) {
    constexpr qsizetype size = 3'692'308;  // 5 MB of text
    std::vector<ClipboardItem> items;
    for (int index = 0; index < megabytes / 5; ++index)
        items.push_back(test::entry(ImageContent{test::noise(size, unsigned(index))}));
    return items;
}

Figure figure(const QString &what, const char *unit, std::optional<double> budget) {
    return {what, QString::fromLatin1(unit), budget, {}};
}

void addToTexts(Table &table, Extent extent) {
    for (const Place &place : places()) {
        History history(place.folder);
        history.fill(texts(10'000));
        const auto budget = place.hasBudget ? std::optional(20.0) : std::nullopt;
        Figure first = figure(
            QStringLiteral("add to 10,000 texts, first after start, %1").arg(QLatin1String(place.name)), "ms",
            budget);
        Figure others =
            figure(QStringLiteral("add to 10,000 texts, %1").arg(QLatin1String(place.name)), "ms", budget);
        for (int run = 0; run < (extent.quick ? 3 : 10); ++run) {
            history.reload();
            const auto add = [&] { history.store->add(test::text(QUuid::createUuid().toString())); };
            first.samples.push_back(milliseconds(add));
            for (int more = 0; more < 5; ++more)
                others.samples.push_back(milliseconds(add));
        }
        table.add(first);
        table.add(others);
    }
}

void search(Table &table, Extent extent) {
    History history(QStringLiteral("/dev/shm"));
    history.fill(texts(10'000));
    Figure first = figure(QStringLiteral("search in 10,000 entries, first keystroke"), "ms", {});
    Figure others = figure(QStringLiteral("search in 10,000 entries, per keystroke"), "ms", 10);
    for (int run = 0; run < (extent.quick ? 3 : 10); ++run) {
        history.reload();
        const QString typed = QStringLiteral("entry 99");
        for (int length = 1; length <= typed.size(); ++length) {
            const double time = milliseconds([&] {
                history.store->setSearchQuery(typed.left(length));
                history.store->filteredItems();
            });
            (length == 1 ? first : others).samples.push_back(time);
        }
    }
    table.add(first);
    table.add(others);
}

void saveAndLoad(Table &table, Extent extent) {
    for (const Place &place : places()) {
        History history(place.folder);
        history.fill(pictures(200));
        const double size = history.megabytes();
        const auto budget = place.hasBudget ? std::optional(size / 500 * 1000) : std::nullopt;
        const auto name = [&](const char *what) {
            return QStringLiteral("%1 a history of %2 MB, %3")
                .arg(QLatin1String(what))
                .arg(qRound(size))
                .arg(QLatin1String(place.name));
        };
        Figure load = figure(name("load"), "ms", budget);
        Figure encode = figure(name("save, encoding all of"), "ms", budget);
        Figure copy = figure(name("save, copying all of"), "ms", budget);
        for (int run = 0; run < (extent.quick ? 3 : 10); ++run) {
            history.store.reset();
            load.samples.push_back(milliseconds([&] { history.reload(); }));
            encode.samples.push_back(milliseconds([&] { history.store->saveToDisk(); }));
            copy.samples.push_back(milliseconds([&] { history.store->saveToDisk(); }));
        }
        for (const Figure &each : {load, encode, copy})
            table.add(each);
    }
}

/// The most memory that this process has held since `clear_refs` was written, in MB.
double peakMemory() {
    std::ifstream status("/proc/self/status");
    double kilobytes = 0;
    for (std::string word; status >> word && kilobytes == 0;)
        if (word == "VmHWM:")
            status >> kilobytes;
    return kilobytes * 1024 / megabyte;
}

/// In a process of its own, as memory that was once used is not always given back.
void memory(Table &table) {
    History history(QStringLiteral("/dev/shm"));
    history.fill(pictures(200));
    const double size = history.megabytes();
    history.store.reset();
    int pipe[2];
    if (::pipe(pipe) != 0)
        return;
    if (const pid_t child = fork(); child == 0) {
        std::ofstream("/proc/self/clear_refs") << 5;
        const double before = peakMemory();
        history.reload();
        history.store->saveToDisk();
        history.store->add(test::text(QStringLiteral("one more")));
        const double peak = peakMemory() - before;
        _exit(write(pipe[1], &peak, sizeof peak) == sizeof peak ? 0 : 1);
    } else {
        double peak = 0;
        if (read(pipe[0], &peak, sizeof peak) == sizeof peak)
            table.add({QStringLiteral("peak memory to load and save a history of %1 MB").arg(qRound(size)),
                       QStringLiteral("MB"),
                       2 * size,
                       {peak}});
        waitpid(child, nullptr, 0);
    }
    close(pipe[0]);
    close(pipe[1]);
}

void copyIntoPictures(Table &table, Extent extent) {
    for (const Place &place : places()) {
        History history(place.folder);
        history.fill(pictures(250));
        history.store->saveToDisk();
        const QString name =
            QStringLiteral("one text into 250 MB of pictures, %1").arg(QLatin1String(place.name));
        Figure stall = figure(name + QStringLiteral(", main loop stalls"), "ms", {});
        for (int run = 0; run < (extent.quick ? 3 : 10); ++run)
            stall.samples.push_back(
                milliseconds([&] { history.store->add(test::text(QUuid::createUuid().toString())); }));
        table.add(stall);
        table.add({name + QStringLiteral(", written"), QStringLiteral("MB"), {}, {history.megabytes()}});
    }
}

void start(Table &table, Extent extent) {
    Stage stage;
    const QString folder = stage.session.environment().value(
        QStringLiteral("XDG_DATA_HOME"), stage.session.home() + QStringLiteral("/.local/share"));
    QDir().mkpath(folder + QStringLiteral("/Pimloft"));
    {
        History history(QStringLiteral("/dev/shm"));
        history.fill(pictures(200));
        QFile::copy(history.folder.path() + fileName, folder + QStringLiteral("/Pimloft") + fileName);
    }
    test::TrayHost host(stage.session.display());
    Figure tray = figure(QStringLiteral("process start to tray icon with a history of 200 MB"), "ms", 500);
    for (int run = 0; run < (extent.quick ? 3 : 11); ++run) {
        host.forgetIcon();
        QElapsedTimer elapsed;
        elapsed.start();
        const test::Program program(stage.session);
        millisecondsUntil([&] { return host.hasIcon(); });
        tray.samples.push_back(double(elapsed.nsecsElapsed()) / 1e6);
    }
    table.add(tray);
}

}  // namespace

void measureHistory(Table &table, Extent extent) {
    memory(table);
    addToTexts(table, extent);
    search(table, extent);
    saveAndLoad(table, extent);
    copyIntoPictures(table, extent);
    start(table, extent);
}

}  // namespace pimloft::bench
