// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dialogs/dialogs.h"
#include "platform/fake_log.h"

#include <QPointer>

#include <deque>

namespace pimloft {

/// A user who answers when the test says so.
class FakeDialogs final : public DialogService {
public:
    explicit FakeDialogs(FakeLog &log) : log_(log) {}

    void alert(const Alert &alert, QObject *context, std::function<void()> done) override;
    void askForSavePath(const FileQuestion &question, QObject *context, PathAnswer done) override;
    void askForOpenPath(const FileQuestion &question, QObject *context, PathAnswer done) override;

    /// Closes the oldest open alert, or answers the oldest open question. Fails the test if none is open.
    void closeAlert();
    void answerPath(std::optional<QString> path);

private:
    template <typename Done>
    struct Open {
        QPointer<QObject> context;
        Done done;
    };
    FakeLog &log_;
    std::deque<Open<std::function<void()>>> alerts_;
    std::deque<Open<PathAnswer>> questions_;
};

}  // namespace pimloft
