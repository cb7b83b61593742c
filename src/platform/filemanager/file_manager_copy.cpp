// SPDX-License-Identifier: MIT
#include "platform/filemanager/file_manager_copy.h"

#include "platform/pasteboard/paste_targets.h"

#include <utility>

namespace pimloft {

namespace {

using namespace std::chrono_literals;

constexpr qsizetype longestCopy = 64 << 20;

/// Some toolkits answer a ping ahead of keys that came before it, and are asked once more.
constexpr int pingRounds = 2;

/// The answer may still overtake the copy by a little.
constexpr auto grace = 30ms;

/// A window that answers nothing is left alone for so long.
constexpr auto longestBusy = 10s;

/// A window that tells nothing about what it has read is given so long.
constexpr auto graceWithoutPing = 150ms;

CopiedContent contentOf(const SelectionAnswer &answer) {
    if (answer.status != SelectionAnswer::present)
        return {};
    const bool isFiles = PasteType(answer.tag) == PasteType::fileUrls;
    return {isFiles ? CopiedContent::files : CopiedContent::text, answer.bytes};
}

}  // namespace

FileManagerCopy::FileManagerCopy(X11Pasteboard &pasteboard) : pasteboard_(pasteboard) {
    grace_.setSingleShot(true);
    grace_.setTimerType(Qt::PreciseTimer);
    connect(&grace_, &QTimer::timeout, this, [this] {
        hasActed_ = false;
        busyWindow_ = XCB_NONE;
        pasteboard_.nothingComes(loan_);
    });
}

FileManagerCopy::~FileManagerCopy() {
    stop();
}

void FileManagerCopy::start(const FileManagerWindow &window, Act act, Done done) {
    stop();
    done_ = std::move(done);
    context_ = std::make_unique<QObject>();
    if (busyWindow_ != window.window || busy_.hasExpired())
        lend(window, std::move(act));
    else
        QTimer::singleShot(0, context_.get(), [this] { std::exchange(done_, nullptr)({}); });
}

void FileManagerCopy::lend(const FileManagerWindow &window, Act act) {
    grace_.stop();
    busyWindow_ = XCB_NONE;
    window_ = window.window;
    hasActed_ = false;
    ping_ = std::make_unique<WindowPing>(window.window);
    LoanRequest request;
    request.borrower = window.window;
    request.wishes = wishesFor({PasteType::fileUrls, PasteType::plainText});
    request.cap = longestCopy;
    request.onKept = [this, act = std::move(act), answersPing = window.answersPing] {
        act([this, answersPing, loan = loan_](bool isDone) {
            // What it copied may have come before the word that it was made to.
            if (loan != loan_ || !done_)
                return;
            hasActed_ = isDone;
            isDone ? wait(answersPing) : fail();
        });
    };
    request.onEnded = [this](const LoanResult &result) { ended(result); };
    loan_ = pasteboard_.lend(std::move(request), context_.get());
}

void FileManagerCopy::wait(bool answersPing) {
    if (answersPing)
        ping(1);
    else
        grace_.start(graceWithoutPing);
}

void FileManagerCopy::ping(int round) {
    ping_->send([this, round] {
        if (round < pingRounds)
            ping(round + 1);
        else
            grace_.start(grace);
    });
}

void FileManagerCopy::ended(const LoanResult &result) {
    grace_.stop();
    ping_.reset();
    hasActed_ = false;
    const Done done = std::exchange(done_, nullptr);
    if (!done)
        return;
    if (result.status == LoanResult::copied)
        done(contentOf(result.answer));
    else
        done({result.status == LoanResult::untouched ? CopiedContent::nothing : CopiedContent::unknown});
}

void FileManagerCopy::fail() {
    const Done done = std::exchange(done_, nullptr);
    pasteboard_.nothingComes(loan_);
    if (done)
        done({});
}

void FileManagerCopy::stop() {
    if (!std::exchange(done_, nullptr))
        return;
    // The ping goes on: once it is answered, nothing is to be taken back any more.
    if (std::exchange(hasActed_, false)) {
        busyWindow_ = window_;
        busy_.setRemainingTime(longestBusy, Qt::CoarseTimer);
    }
    pasteboard_.giveUpLoan(loan_);
    context_.reset();
}

}  // namespace pimloft
