// SPDX-License-Identifier: MIT
#include "finderfix/file_moves.h"

#include <QFutureWatcher>
#include <QPromise>

#include <memory>

namespace pimloft {

namespace {

void moveAll(const FileMover &mover, const std::vector<FileUrl> &items, const FileUrl &folder,
             QPromise<MoveFailure> &failures) {
    const auto isCancelled = [&failures] { return failures.isCanceled(); };
    for (const FileUrl &item : items) {
        if (isCancelled())
            return;
        if (auto error = mover.move(item, folder, isCancelled))
            failures.addResult(MoveFailure{item.name(), *std::move(error)});
    }
}

}  // namespace

FileMoves::FileMoves(FileService &files) : mover_(files) {
    thread_.setMaxThreadCount(1);
}

FileMoves::~FileMoves() {
    for (QFuture<MoveFailure> &each : underWay_)
        each.cancel();
    thread_.waitForDone();
}

void FileMoves::move(std::vector<FileUrl> items, const FileUrl &folder) {
    const auto failures = std::make_shared<QPromise<MoveFailure>>();
    auto *watcher = new QFutureWatcher<MoveFailure>(this);
    connect(watcher, &QFutureWatcherBase::resultReadyAt, this,
            [this, watcher](int index) { emit failed(watcher->resultAt(index)); });
    connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher] {
        std::erase_if(underWay_, [](const QFuture<MoveFailure> &each) { return each.isFinished(); });
        watcher->deleteLater();
    });
    watcher->setFuture(failures->future());
    underWay_.push_back(failures->future());
    failures->start();
    thread_.start([this, items = std::move(items), folder, failures] {
        moveAll(mover_, items, folder, *failures);
        failures->finish();
    });
}

}  // namespace pimloft
