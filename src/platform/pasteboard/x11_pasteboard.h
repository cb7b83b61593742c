// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pasteboard/pasteboard.h"
#include "platform/windows/windows.h"
#include "platform/x11/x11_selection.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <map>

namespace pimloft {

/// The clipboard of an X11 desktop. Main thread.
class X11Pasteboard final : public PasteboardService {
public:
    /// `identify` answers a process's identifier, or nothing where the desktop does not know it.
    explicit X11Pasteboard(std::function<std::optional<QString>(ProcessId)> identify);

    qint64 changeCount() const override { return selection_.changeCount(); }
    void origin(qint64 change, QObject *context,
                std::function<void(std::optional<PasteOrigin>)> done) override;
    void read(qint64 change, std::vector<PasteType> wanted, qsizetype cap, QObject *context,
              std::function<void(PasteData)> done) override;
    qint64 write(std::vector<PasteItem> items) override;

    /// Offers what was written last in the place where the oldest programs paste from, too.
    void offerAsPrimary() { selection_.offerAsPrimary(); }

    /// Lends the clipboard to another program: see SelectionLoan. The callbacks of `request` are called on
    /// the main thread, queued, never after `context` is gone. Answers the loan's number.
    std::uint64_t lend(LoanRequest request, QObject *context);
    /// The program will not copy.
    void nothingComes(std::uint64_t loan) { selection_.nothingComes(loan); }
    /// Ends a loan whatever the program does.
    void giveUpLoan(std::uint64_t loan) { selection_.giveUpLoan(loan); }

private:
    using Done = std::function<void(SelectionAnswer)>;
    struct Question {
        QPointer<QObject> context;
        Done done;
        std::unique_ptr<QTimer> deadline;
    };
    void ask(SelectionQuery query, QObject *context, Done done);
    void settle(std::uint64_t id, SelectionAnswer answer);
    void supersedeAll();
    void giveUp(std::uint64_t id);

    std::function<std::optional<QString>(ProcessId)> identify_;
    std::map<std::uint64_t, Question> pending_;
    std::uint64_t lastId_ = 0;
    QObject answers_;  ///< receives them from the selection's thread
    X11Selection selection_;
};

}  // namespace pimloft
