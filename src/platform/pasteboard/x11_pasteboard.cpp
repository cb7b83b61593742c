// SPDX-License-Identifier: MIT
#include "platform/pasteboard/x11_pasteboard.h"

#include "platform/pasteboard/paste_targets.h"

#include <QMetaObject>

namespace pimloft {

namespace {

using namespace std::chrono_literals;

/// How long another program may take to answer; the answer is given within 2 s.
constexpr auto readPatience = 1900ms;

/// By this programs mark what is to be kept out of histories.
constexpr qsizetype longestMark = 64;

std::optional<QByteArray> mark(const QByteArray &, QByteArray bytes) {
    while (bytes.endsWith('\0'))
        bytes.chop(1);
    return bytes.trimmed();
}

PasteData::Status status(SelectionAnswer::Status status) {
    switch (status) {
    case SelectionAnswer::present:
        return PasteData::present;
    case SelectionAnswer::absent:
        return PasteData::absent;
    case SelectionAnswer::tooLarge:
        return PasteData::tooLarge;
    case SelectionAnswer::superseded:
        return PasteData::superseded;
    case SelectionAnswer::failed:
        break;
    }
    return PasteData::failed;
}

bool hasContent(SelectionAnswer::Status status) {
    return status == SelectionAnswer::present || status == SelectionAnswer::tooLarge;
}

}  // namespace

X11Pasteboard::X11Pasteboard(std::function<std::optional<QString>(ProcessId)> identify)
    : identify_(std::move(identify)), selection_([this](std::uint64_t id, SelectionAnswer answer) {
          QMetaObject::invokeMethod(
              &answers_, [this, id, answer = std::move(answer)]() mutable { settle(id, std::move(answer)); },
              Qt::QueuedConnection);
      }) {
}

void X11Pasteboard::origin(qint64 change, QObject *context,
                           std::function<void(std::optional<PasteOrigin>)> done) {
    SelectionQuery query;
    query.change = change;
    query.wishes = {{secretMark, 0, mark}};
    query.cap = longestMark;
    query.wantsOwner = true;
    ask(std::move(query), context, [this, done = std::move(done)](SelectionAnswer answer) {
        if (answer.status == SelectionAnswer::superseded || answer.status == SelectionAnswer::failed) {
            done(std::nullopt);
            return;
        }
        PasteOrigin origin;
        origin.isSecret = answer.bytes == "secret";
        if (answer.owner)
            origin.bundleId = identify_(*answer.owner);
        done(origin);
    });
}

void X11Pasteboard::read(qint64 change, std::vector<PasteType> wanted, qsizetype cap, QObject *context,
                         std::function<void(PasteData)> done) {
    SelectionQuery query;
    query.change = change;
    query.wishes = wishesFor(wanted);
    query.cap = cap;
    const PasteType first = wanted.empty() ? PasteType::plainText : wanted.front();
    ask(std::move(query), context, [first, done = std::move(done)](SelectionAnswer answer) {
        const PasteType type = hasContent(answer.status) ? PasteType(answer.tag) : first;
        done({status(answer.status), type, std::move(answer.bytes)});
    });
}

void X11Pasteboard::ask(SelectionQuery query, QObject *context, Done done) {
    const std::uint64_t id = ++lastId_;
    query.id = id;
    auto deadline = std::make_unique<QTimer>();
    deadline->setSingleShot(true);
    deadline->setTimerType(Qt::PreciseTimer);
    QObject::connect(deadline.get(), &QTimer::timeout, &answers_, [this, id] { giveUp(id); });
    deadline->start(readPatience);
    pending_.emplace(id, Question{context, std::move(done), std::move(deadline)});
    selection_.ask(std::move(query));
}

void X11Pasteboard::settle(std::uint64_t id, SelectionAnswer answer) {
    auto question = pending_.extract(id);
    if (question.empty() || !question.mapped().context)
        return;
    question.mapped().done(std::move(answer));
}

void X11Pasteboard::giveUp(std::uint64_t id) {
    selection_.abandon(id);
    settle(id, {SelectionAnswer::failed});
}

qint64 X11Pasteboard::write(std::vector<PasteItem> items) {
    supersedeAll();
    return selection_.offer(formsOf(items));
}

std::uint64_t X11Pasteboard::lend(LoanRequest request, QObject *context) {
    request.id = ++lastId_;
    const auto later = [this, context = QPointer(context)](auto call) {
        QMetaObject::invokeMethod(
            &answers_,
            [context, call = std::move(call)] {
                if (context)
                    call();
            },
            Qt::QueuedConnection);
    };
    request.onKept = [later, call = std::move(request.onKept)] { later(call); };
    request.onEnded = [later, call = std::move(request.onEnded)](LoanResult result) {
        later([call, result = std::move(result)] { call(result); });
    };
    const std::uint64_t id = request.id;
    selection_.lend(std::move(request));
    return id;
}

void X11Pasteboard::supersedeAll() {
    for (auto &entry : pending_) {
        Question &question = entry.second;
        if (!question.context)
            continue;
        QMetaObject::invokeMethod(
            question.context, [done = std::move(question.done)] { done({SelectionAnswer::superseded}); },
            Qt::QueuedConnection);
    }
    pending_.clear();
}

}  // namespace pimloft
