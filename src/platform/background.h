// SPDX-License-Identifier: MIT
#pragma once

#include <QFuture>
#include <QObject>
#include <QPromise>
#include <QThreadPool>

#include <memory>

namespace pimloft {

/// With as many threads as processors, two folders on a disk that is stuck would keep all others from being
/// asked.
inline QThreadPool &backgroundThreads() {
    // Never destroyed: that would wait for whatever is stuck.
    static auto *const threads = [] {
        constexpr int most = 64;
        auto *pool = new QThreadPool;
        pool->setMaxThreadCount(most);
        return pool;
    }();
    return *threads;
}

/// Runs `work` on another thread, since it may be stuck for long: a disk, a network. `done` gets its result
/// on the thread of `context`, from the event loop, never after `context` is gone.
template <typename Work, typename Done>
void inBackground(QObject *context, Work work, Done done) {
    using Result = decltype(work());
    const auto promise = std::make_shared<QPromise<Result>>();
    promise->future().then(context, std::move(done));
    backgroundThreads().start([promise, work = std::move(work)] {
        promise->start();
        promise->addResult(work());
        promise->finish();
    });
}

}  // namespace pimloft
