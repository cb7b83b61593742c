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
    void origin(qint64 change, QObject *context,
                std::function<void(std::optional<PasteOrigin>)> done) override;
    void read(qint64 change, std::vector<PasteType> wanted, qsizetype cap, QObject *context,
              std::function<void(PasteData)> done) override;
    qint64 write(std::vector<PasteItem> items) override;

    /// Another program copies.
    void copy(std::vector<PasteItem> items);
    /// Lets the oldest pending question come to its answer. False: none is pending.
    bool answer();
    int pendingQuestions() const { return int(pending_.size()); }

    PasteOrigin copiedBy;     ///< whose content the newest change is
    bool ownerHangs = false;  ///< pending questions are answered as failed

private:
    struct Request {
        qint64 change;
        std::vector<PasteType> wanted;
        qsizetype cap;
    };
    struct Question {
        QPointer<QObject> context;
        std::function<void()> answer;
    };
    void ask(qint64 change, QObject *context, std::function<void()> answer);
    PasteData resolve(const Request &request) const;

    FakeLog &log_;
    qint64 changeCount_ = 0;
    std::vector<PasteItem> items_;
    std::vector<Question> pending_;
};

}  // namespace pimloft
