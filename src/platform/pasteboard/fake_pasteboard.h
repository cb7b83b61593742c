// SPDX-License-Identifier: MIT
#pragma once

#include "platform/fake_log.h"
#include "platform/pasteboard/pasteboard.h"

#include <QPointer>

#include <optional>

namespace pimloft {

/// A pasteboard in memory whose answers come when a test lets them come.
class FakePasteboard final : public PasteboardService {
public:
    explicit FakePasteboard(FakeLog &log) : log_(log) {}

    qint64 changeCount() const override { return changeCount_; }
    void read(qint64 change, std::vector<PasteType> wanted, qsizetype cap, QObject *context,
              std::function<void(PasteData)> done) override;
    qint64 write(std::vector<PasteItem> items) override;

    /// Another program copies.
    void copy(std::vector<PasteItem> items);
    /// Lets the oldest pending read come to its answer. False: none is pending.
    bool answer();
    int pendingReads() const { return int(pending_.size()); }

    bool ownerHangs = false;  ///< pending reads are answered as failed

private:
    struct Request {
        qint64 change;
        std::vector<PasteType> wanted;
        qsizetype cap;
        QPointer<QObject> context;
        std::function<void(PasteData)> done;
    };
    PasteData resolve(const Request &request) const;

    FakeLog &log_;
    qint64 changeCount_ = 0;
    std::vector<PasteItem> items_;
    std::vector<Request> pending_;
};

}  // namespace pimloft
