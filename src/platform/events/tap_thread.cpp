// SPDX-License-Identifier: MIT
#include "platform/events/tap_thread.h"

#include "platform/events/x11_tap_keys.h"

#include <poll.h>

#include <algorithm>
#include <utility>

namespace pimloft {

namespace {

using std::chrono::steady_clock;

/// A guard that cannot live is not started again and again.
constexpr std::chrono::seconds betweenGuards{1};

}  // namespace

std::unique_ptr<TapThread> TapThread::start(std::shared_ptr<KeyFilter> filter, const std::string &guard,
                                            std::function<void()> onLost) {
    auto connection = TapConnection::open();
    if (!connection)
        return nullptr;
    std::unique_ptr<TapThread> tap(
        new TapThread(std::move(connection), std::move(filter), guard, std::move(onLost)));
    // Without somebody to give the keyboard back, it is not taken.
    if (!tap->guard_.start(tap->connection_->window()) || !tap->connection_->grabAll(tap->state_))
        return nullptr;
    tap->thread_ = std::thread(&TapThread::run, tap.get());
    return tap;
}

TapThread::TapThread(std::unique_ptr<TapConnection> connection, std::shared_ptr<KeyFilter> filter,
                     const std::string &guard, std::function<void()> onLost)
    : connection_(std::move(connection)), filter_(std::move(filter)),
      state_(tapKeys(X11Keymap::read(connection_->connection())), *filter_), guard_(guard),
      onLost_(std::move(onLost)), guardStarted_(steady_clock::now()) {
    events_.reserve(64);
}

TapThread::~TapThread() {
    mailbox_.stop();
    if (thread_.joinable())
        thread_.join();
}

void TapThread::run() {
    while (!mailbox_.isStopped() && !connection_->isLost()) {
        readServer();
        readMailbox();
        if (!mailbox_.isStopped() && !connection_->isLost())
            wait();
    }
    if (!connection_->isLost())
        giveBack();
    guard_.end();
    mailbox_.close();
    if (!mailbox_.isStopped())
        onLost_();
}

void TapThread::wait() {
    pollfd sources[] = {{xcb_get_file_descriptor(connection_->connection()), POLLIN, 0},
                        {mailbox_.wakeUp(), POLLIN, 0},
                        {guard_.channel(), POLLIN, 0}};
    int milliseconds = -1;
    if (guardIsDue_) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(*guardIsDue_ - steady_clock::now());
        milliseconds = int(std::max<std::chrono::milliseconds::rep>(left.count(), 0));
    }
    poll(sources, std::size(sources), milliseconds);
    if (sources[1].revents)
        mailbox_.clearWakeUp();
    if (sources[2].revents || guardIsDue_)
        tendGuard();
}

void TapThread::tendGuard() {
    if (!guardIsDue_) {
        if (guard_.answer())
            return;
        // If it ended because it took the keyboards back, the connection is seen to be lost before its time
        // comes.
        guard_.end();
        guardIsDue_ = guardStarted_ + betweenGuards;
        return;
    }
    if (steady_clock::now() < *guardIsDue_)
        return;
    guardStarted_ = steady_clock::now();
    if (guard_.start(connection_->window()))
        guardIsDue_.reset();
    else
        guardIsDue_ = guardStarted_ + betweenGuards;
}

void TapThread::readMailbox() {
    mailbox_.takePost([this](const TapMailbox::Post &post) {
        carryOut(state_.post(post.key, post.modifiers));
        roundTrip(connection_->connection());
    });
    if (const auto actions = state_.setPassing(mailbox_.isPassing()); !actions.empty())
        carryOut(actions);
}

void TapThread::readServer() {
    do {
        events_.clear();
        while (connection_->read(events_)) {
            for (const TapConnection::Event &event : events_)
                handle(event);
            events_.clear();
        }
        // Keys first. Each of these waits for the server, and more may have been read meanwhile.
        if (std::exchange(mapIsDue_, false))
            readMap();
        else if (std::exchange(locksAreDue_, false))
            connection_->copyLocksToTaken();
        else
            return;
    } while (!connection_->isLost());
}

void TapThread::handle(const TapConnection::Event &event) {
    switch (event.kind) {
    case TapConnection::Event::key:
        if (auto frontmost = mailbox_.takeFrontmost())
            state_.setFrontmost(std::move(*frontmost));
        carryOut(state_.key(event.physical, steady_clock::now()));
        return;
    case TapConnection::Event::keyboardCame:
        connection_->grabNew(state_);
        return;
    case TapConnection::Event::keyboardWent:
        connection_->forget(event.physical.source);
        carryOut(state_.remove(event.physical.source));
        return;
    case TapConnection::Event::mapChanged:
        mapIsDue_ = true;
        return;
    case TapConnection::Event::locksChanged:
        locksAreDue_ = true;
        return;
    }
}

void TapThread::readMap() {
    if (connection_->copyMapToTaken())
        carryOut(state_.setKeys(tapKeys(X11Keymap::read(connection_->connection()))));
}

void TapThread::carryOut(TapState::Actions actions) {
    // Whoever hears of a key is to know whether the user still holds it.
    mailbox_.publishHeld(state_.held());
    connection_->carryOut(actions);
}

/// What was typed until the keyboards are given back is still delivered.
void TapThread::giveBack() {
    connection_->ungrabAll();
    readServer();
    carryOut(state_.stop());
    roundTrip(connection_->connection());
}

}  // namespace pimloft
