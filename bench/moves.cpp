// SPDX-License-Identifier: MIT
#include "finderfix/file_mover.h"
#include "measures.h"
#include "platform/files/linux_files.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace pimloft::bench {

namespace {

using Fill = std::function<void(const std::filesystem::path &)>;

void fillWithSmallFiles(const std::filesystem::path &item, int count) {
    std::filesystem::create_directories(item);
    const std::string content(2000, 'x');
    for (int number = 0; number < count; ++number)
        std::ofstream(item / std::to_string(number)) << content;
}

void fillWithOneFile(const std::filesystem::path &item, int megabytes) {
    const std::string content(1 << 20, 'x');
    std::ofstream file(item, std::ios::binary);
    for (int number = 0; number < megabytes; ++number)
        file << content;
}

FileUrl url(const std::filesystem::path &path) {
    return FileUrl::fromPath(QByteArray::fromStdString(path.string())).value();
}

void moveByUs(const std::filesystem::path &item, const std::filesystem::path &folder) {
    const FileCalls calls{};
    LinuxFiles files(calls);
    FileMover(files).move(url(item), url(folder), [] { return false; });
}

void moveByMv(const std::filesystem::path &item, const std::filesystem::path &folder) {
    QProcess::execute(QStringLiteral("mv"), {QString::fromStdString(item), QString::fromStdString(folder)});
}

/// The same for who does not wait for the disk: everything is on it when the time ends.
void moveByMvAndSync(const std::filesystem::path &item, const std::filesystem::path &folder) {
    moveByMv(item, folder);
    sync();
}

/// From one folder to the other and back, with fresh files each time.
void measure(Table &table, const QString &what, const Fill &fill, int runs) {
    const QTemporaryDir memory(QStringLiteral("/dev/shm/pimloft-bench-XXXXXX"));
    const QTemporaryDir disk(QDir::tempPath() + QStringLiteral("/pimloft-bench-XXXXXX"));
    const std::filesystem::path ends[] = {memory.path().toStdString(), disk.path().toStdString()};
    struct stat one {};
    struct stat other {};
    if (stat(ends[0].c_str(), &one) != 0 || stat(ends[1].c_str(), &other) != 0 || one.st_dev == other.st_dev)
        return;
    constexpr struct {
        const char *peer;
        void (*move)(const std::filesystem::path &, const std::filesystem::path &);
    } movers[] = {{"mv", moveByMv}, {"mv and sync", moveByMvAndSync}, {"", moveByUs}};
    for (const bool toDisk : {true, false})
        for (const auto &mover : movers) {
            Figure figure{what + (toDisk ? QStringLiteral(" to disk") : QStringLiteral(" to RAM disk")),
                          QStringLiteral("ms"),
                          {},
                          {},
                          QString::fromLatin1(mover.peer)};
            for (int run = 0; run < runs; ++run) {
                const std::filesystem::path item = ends[toDisk ? 0 : 1] / "item";
                fill(item);
                sync();
                QElapsedTimer elapsed;
                elapsed.start();
                mover.move(item, ends[toDisk ? 1 : 0]);
                figure.samples.push_back(double(elapsed.nsecsElapsed()) / 1e6);
                std::filesystem::remove_all(ends[toDisk ? 1 : 0] / "item");
            }
            table.add(figure);
        }
}

}  // namespace

void measureMoves(Table &table, Extent extent) {
    const int count = extent.quick ? 1'000 : 10'000;
    const int megabytes = extent.quick ? 200 : 2'000;
    const int runs = extent.quick ? 1 : 3;
    measure(
        table, QStringLiteral("move a folder of %1 files").arg(count),
        [count](const auto &item) { fillWithSmallFiles(item, count); }, runs);
    measure(
        table, QStringLiteral("move a file of %1 MB").arg(megabytes),
        [megabytes](const auto &item) { fillWithOneFile(item, megabytes); }, runs);
}

}  // namespace pimloft::bench
