// SPDX-License-Identifier: MIT
#include "platform/events/tap_mailbox.h"

#include <chrono>
#include <sys/eventfd.h>
#include <unistd.h>

namespace pimloft {

namespace {

/// The tap is never busy for so long; only its server may be.
constexpr std::chrono::seconds answerPatience{1};

constexpr std::size_t wordBits = 64;

}  // namespace

TapMailbox::TapMailbox() : wakeUp_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
}

TapMailbox::~TapMailbox() {
    delete frontmost_.exchange(nullptr);
    ::close(wakeUp_);
}

void TapMailbox::wake() {
    eventfd_write(wakeUp_, 1);
}

void TapMailbox::clearWakeUp() {
    eventfd_t times;
    eventfd_read(wakeUp_, &times);
}

void TapMailbox::stop() {
    stopped_.store(true, std::memory_order_release);
    wake();
}

void TapMailbox::setPassing(bool passing) {
    passing_.store(passing, std::memory_order_release);
    wake();
}

void TapMailbox::setFrontmost(std::string bundleId) {
    delete frontmost_.exchange(new std::string(std::move(bundleId)), std::memory_order_acq_rel);
}

std::unique_ptr<std::string> TapMailbox::takeFrontmost() {
    if (!frontmost_.load(std::memory_order_relaxed))
        return nullptr;
    return std::unique_ptr<std::string>(frontmost_.exchange(nullptr, std::memory_order_acq_rel));
}

bool TapMailbox::post(const Post &post) {
    Letter letter{.post = post};
    letter_.store(&letter);
    // Whoever takes the letter out has to answer for it.
    if (closed_.load() && letter_.exchange(nullptr) == &letter)
        return false;
    wake();
    if (!letter.read.try_acquire_for(answerPatience)) {
        if (letter_.exchange(nullptr) == &letter)
            return false;
        letter.read.acquire();
    }
    return letter.done;
}

void TapMailbox::finish(Letter &letter, bool done) {
    letter.done = done;
    letter.read.release();
}

void TapMailbox::close() {
    closed_.store(true);
    if (Letter *letter = letter_.exchange(nullptr))
        finish(*letter, false);
}

void TapMailbox::publishHeld(const KeySet &held) {
    const KeySet low(~std::uint64_t(0));
    for (std::size_t word = 0; word < held_.size(); ++word)
        held_[word].store(((held >> (word * wordBits)) & low).to_ullong(), std::memory_order_release);
}

std::optional<KeySet> TapMailbox::held() const {
    if (closed_.load())
        return std::nullopt;
    KeySet held;
    for (std::size_t word = 0; word < held_.size(); ++word)
        held |= KeySet(held_[word].load(std::memory_order_acquire)) << (word * wordBits);
    return held;
}

}  // namespace pimloft
