// SPDX-License-Identifier: MIT
#include "platform/pasteboard/fake_pasteboard.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace pimloft {

void FakePasteboard::origin(qint64 change, QObject *context,
                            std::function<void(std::optional<PasteOrigin>)> done) {
    ask(change, context, [this, change, done = std::move(done)] {
        const bool answers = change == changeCount_ && !ownerHangs;
        done(answers ? std::optional(copiedBy) : std::nullopt);
    });
}

void FakePasteboard::read(qint64 change, std::vector<PasteType> wanted, qsizetype cap, QObject *context,
                          std::function<void(PasteData)> done) {
    EXPECT_FALSE(wanted.empty()) << "a read that wants nothing";
    EXPECT_GT(cap, 0) << "a read without a cap";
    const Request request{change, std::move(wanted), cap};
    ask(change, context, [this, request, done = std::move(done)] { done(resolve(request)); });
}

void FakePasteboard::ask(qint64 change, QObject *context, std::function<void()> answer) {
    EXPECT_TRUE(context) << "a question whose answer nobody owns";
    EXPECT_LE(change, changeCount_) << "a question about a change that has not happened";
    pending_.push_back({context, std::move(answer)});
}

qint64 FakePasteboard::write(std::vector<PasteItem> items) {
    log_.line(QStringLiteral("write %1 forms to the pasteboard").arg(items.size()));
    copy(std::move(items));
    return changeCount_;
}

void FakePasteboard::copy(std::vector<PasteItem> items) {
    items_ = std::move(items);
    ++changeCount_;
}

bool FakePasteboard::answer() {
    if (pending_.empty())
        return false;
    const Question question = std::move(pending_.front());
    pending_.erase(pending_.begin());
    if (question.context)
        question.answer();
    return true;
}

PasteData FakePasteboard::resolve(const Request &request) const {
    if (request.change != changeCount_)
        return {PasteData::superseded, request.wanted.front(), {}};
    if (ownerHangs)
        return {PasteData::failed, request.wanted.front(), {}};
    for (const PasteType type : request.wanted) {
        const auto item = std::find_if(items_.begin(), items_.end(),
                                       [type](const PasteItem &each) { return each.type == type; });
        if (item == items_.end())
            continue;
        if (item->bytes.size() > request.cap)
            return {PasteData::tooLarge, type, {}};
        return {PasteData::present, type, item->bytes};
    }
    return {PasteData::absent, request.wanted.front(), {}};
}

}  // namespace pimloft
