// SPDX-License-Identifier: MIT
#include "platform/dialogs/fake_dialogs.h"

#include <gtest/gtest.h>

namespace pimloft {

void FakeDialogs::alert(const Alert &alert, QObject *context, std::function<void()> done) {
    EXPECT_TRUE(context) << "an alert that nobody owns";
    log_.line(
        QStringLiteral("alert: %1 | %2 | [%3]").arg(alert.message, alert.informativeText, alert.button));
    alerts_.push_back({context, std::move(done)});
}

void FakeDialogs::askForSavePath(const FileQuestion &question, QObject *context, PathAnswer done) {
    EXPECT_TRUE(context) << "a question that nobody owns";
    log_.line(QStringLiteral("ask where to save %1 (%2)").arg(question.proposedName, question.mimeType));
    questions_.push_back({context, std::move(done)});
}

void FakeDialogs::askForOpenPath(const FileQuestion &question, QObject *context, PathAnswer done) {
    EXPECT_TRUE(context) << "a question that nobody owns";
    log_.line(QStringLiteral("ask what to open (%1)").arg(question.mimeType));
    questions_.push_back({context, std::move(done)});
}

void FakeDialogs::closeAlert() {
    ASSERT_FALSE(alerts_.empty()) << "no alert is open";
    const auto open = std::move(alerts_.front());
    alerts_.pop_front();
    if (open.context && open.done)
        open.done();
}

void FakeDialogs::answerPath(std::optional<QString> path) {
    ASSERT_FALSE(questions_.empty()) << "no question is open";
    const auto open = std::move(questions_.front());
    questions_.pop_front();
    if (open.context)
        open.done(std::move(path));
}

}  // namespace pimloft
