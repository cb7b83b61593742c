// SPDX-License-Identifier: MIT
// The clipboard is lent to a program, here Qt's, and is afterwards as it was.
#include "pasteboard_desk.h"
#include "platform/pasteboard/paste_targets.h"

#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include <unistd.h>

namespace pimloft {
namespace {

class X11PasteboardLoan : public PasteboardDesk {
protected:
    X11PasteboardLoan() { letQtSeeACopy(); }

    /// Lends the clipboard to Qt, which then does `act`, and waits for the end.
    LoanResult lend(const std::function<void()> &act) {
        std::optional<LoanResult> result;
        start(act, result);
        EXPECT_TRUE(test::waitUntil([&] { return result.has_value(); }));
        return result.value_or(LoanResult{});
    }
    std::uint64_t start(const std::function<void()> &act, std::optional<LoanResult> &result) {
        LoanRequest request;
        request.borrower = xcb_window_t(window_.winId());
        request.wishes = wishesFor({PasteType::fileUrls, PasteType::plainText});
        request.cap = large;
        request.onKept = act;
        request.onEnded = [&result](const LoanResult &ended) {
            EXPECT_FALSE(result) << "ended twice";
            result = ended;
        };
        return loan_ = pasteboard_.lend(std::move(request), &context_);
    }
    static void qtCopies(const char *text = "borrowed") {
        QGuiApplication::clipboard()->setText(QLatin1String(text));
    }
    std::string pasted(const char *target = "UTF8_STRING") {
        return test::Requestor().paste(target).value_or("(nothing)").toStdString();
    }

    QWidget window_;
    std::uint64_t loan_ = 0;
};

TEST_F(X11PasteboardLoan, readsWhatIsCopiedAndPutsBackWhatWasThere) {
    const auto owner = xclip("precious");
    const qint64 count = pasteboard_.changeCount();
    const LoanResult result = lend([] { qtCopies(); });
    EXPECT_EQ(result.status, LoanResult::copied);
    EXPECT_EQ(result.answer.bytes, QByteArray("borrowed"));
    EXPECT_EQ(pasted(), "precious");
    EXPECT_EQ(readText(), "precious");
    EXPECT_EQ(pasteboard_.changeCount(), count);
}

TEST_F(X11PasteboardLoan, canBeMadeAgainAndAgain) {
    const auto owner = xclip("precious");
    const qint64 count = pasteboard_.changeCount();
    for (int i = 0; i < 20; ++i) {
        const QByteArray text = QByteArray::number(i);
        EXPECT_EQ(lend([&] { qtCopies(text.constData()); }).answer.bytes, text);
        EXPECT_EQ(pasted(), "precious");
    }
    EXPECT_EQ(pasteboard_.changeCount(), count);
    const auto next = xclip("next");
    EXPECT_EQ(pasteboard_.changeCount(), count + 1) << "a copy counts as ever";
}

TEST_F(X11PasteboardLoan, putsBackWhatThisProgramHadCopied) {
    awaitCopy([this] {
        pasteboard_.write({{PasteType::html, "<b>rich</b>"}, {PasteType::plainText, "plain"}});
    });
    const qint64 count = pasteboard_.changeCount();
    EXPECT_EQ(lend([] { qtCopies(); }).answer.bytes, QByteArray("borrowed"));
    EXPECT_EQ(pasted("text/html"), "<b>rich</b>");
    EXPECT_EQ(pasted(), "plain");
    EXPECT_EQ(pasteboard_.changeCount(), count);
}

TEST_F(X11PasteboardLoan, leavesTheOwnerAloneWhereNothingIsCopied) {
    const auto owner = xclip("precious");
    const qint64 count = pasteboard_.changeCount();
    EXPECT_EQ(lend([this] { pasteboard_.nothingComes(loan_); }).status, LoanResult::untouched);
    EXPECT_EQ(owner->state(), QProcess::Running) << "somebody else has become the owner";
    EXPECT_EQ(pasted(), "precious");
    EXPECT_EQ(pasteboard_.changeCount(), count);
}

TEST_F(X11PasteboardLoan, leavesAloneWhatAnotherProgramCopiesMeanwhile) {
    const auto owner = xclip("precious");
    const qint64 count = pasteboard_.changeCount();
    Program other;
    EXPECT_EQ(lend([&] { other = xclip("other"); }).status, LoanResult::lost);
    EXPECT_EQ(pasted(), "other");
    EXPECT_EQ(pasteboard_.changeCount(), count + 1);
}

TEST_F(X11PasteboardLoan, leavesAloneWhatThisProgramCopiesMeanwhile) {
    const auto owner = xclip("precious");
    EXPECT_EQ(lend([&] { pasteboard_.write(plain("own")); }).status, LoanResult::lost);
    EXPECT_EQ(pasted(), "own");
}

TEST_F(X11PasteboardLoan, isRefusedForContentThatIsTooLarge) {
    const auto owner = xclip(QByteArray((64 << 20) + 1, 'x'));
    EXPECT_EQ(lend([] { FAIL() << "made to copy"; }).status, LoanResult::refused);
    EXPECT_EQ(owner->state(), QProcess::Running);
}

TEST_F(X11PasteboardLoan, isRefusedForContentWhoseOwnerDoesNotAnswer) {
    const auto owner = oddOwner("silent");
    EXPECT_EQ(lend([] { FAIL() << "made to copy"; }).status, LoanResult::refused);
}

TEST_F(X11PasteboardLoan, letsQuestionsWaitForTheContentThatTheyAreAbout) {
    const auto owner = xclip("precious");
    const qint64 count = pasteboard_.changeCount();
    std::optional<PasteData> answer;
    const LoanResult result = lend([&] {
        pasteboard_.read(count, {PasteType::plainText}, large, &context_,
                         [&](PasteData data) { answer = std::move(data); });
        qtCopies();
    });
    EXPECT_EQ(result.status, LoanResult::copied);
    EXPECT_TRUE(test::waitUntil([&] { return answer.has_value(); }));
    EXPECT_EQ(text(*answer), "precious");
}

TEST_F(X11PasteboardLoan, doesNotChangeWhoseContentItIs) {
    const auto owner = xclip("precious");
    const QString program = QStringLiteral("process %1").arg(owner->processId());
    const auto before = origin(pasteboard_.changeCount());
    lend([] { qtCopies(); });
    EXPECT_EQ(origin(pasteboard_.changeCount()), before);
    EXPECT_EQ(before->bundleId, program);
}

TEST_F(X11PasteboardLoan, keepsTheMarkOfWhatIsSecret) {
    const auto owner = oddOwner("isSecret");
    lend([] { qtCopies(); });
    const auto after = origin(pasteboard_.changeCount());
    EXPECT_TRUE(after && after->isSecret);
}

TEST_F(X11PasteboardLoan, takesBackWhatIsCopiedAfterItWasGivenUp) {
    const auto owner = xclip("precious");
    const qint64 count = pasteboard_.changeCount();
    EXPECT_NE(lend([this] { pasteboard_.giveUpLoan(loan_); }).status, LoanResult::copied);
    qtCopies("late");
    EXPECT_TRUE(test::waitUntil([&] { return pasted() == "precious"; }));
    EXPECT_EQ(pasteboard_.changeCount(), count);
    qtCopies("later");
    EXPECT_TRUE(countBecomes(count + 1)) << "only once";
    EXPECT_EQ(readText(), "later");
}

TEST_F(X11PasteboardLoan, leavesAnEmptyClipboardWithoutContent) {
    { const auto owner = xclip("gone"); }
    EXPECT_TRUE(test::waitUntil([this] { return readText() == "(failed)"; }));
    EXPECT_EQ(lend([] { qtCopies(); }).answer.bytes, QByteArray("borrowed"));
    EXPECT_EQ(pasted(), "(nothing)");
}

TEST_F(X11PasteboardLoan, readsFilesBeforeTheirNames) {
    const auto owner = xclip("precious");
    const LoanResult result = lend([] {
        auto *data = new QMimeData;
        data->setUrls({QUrl(QStringLiteral("file:///a%20b"))});
        data->setText(QStringLiteral("a b"));
        QGuiApplication::clipboard()->setMimeData(data);
    });
    EXPECT_EQ(PasteType(result.answer.tag), PasteType::fileUrls);
    EXPECT_EQ(result.answer.bytes, QByteArray("file:///a%20b"));
}

}  // namespace
}  // namespace pimloft
