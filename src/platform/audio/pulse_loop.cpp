// SPDX-License-Identifier: MIT
#include "platform/audio/pulse_loop.h"

#include <pulse/timeval.h>

#include <cstdint>
#include <sys/eventfd.h>
#include <sys/time.h>
#include <unistd.h>
#include <utility>

namespace pimloft {

PulseLoop::PulseLoop(std::function<void()> onWoken)
    : onWoken_(std::move(onWoken)), loop_(pa_threaded_mainloop_new()),
      wakeUps_(eventfd(1, EFD_CLOEXEC | EFD_NONBLOCK)) {
    pa_threaded_mainloop_set_name(loop_.get(), "sound");
    wakeUpEvent_ = api()->io_new(
        api(), wakeUps_, PA_IO_EVENT_INPUT,
        [](pa_mainloop_api *, pa_io_event *, int, pa_io_event_flags_t, void *self) {
            static_cast<PulseLoop *>(self)->readWakeUps();
        },
        this);
    pa_threaded_mainloop_start(loop_.get());
}

void PulseLoop::stop() {
    pa_threaded_mainloop_stop(loop_.get());
}

PulseLoop::~PulseLoop() {
    stop();
    dropTimer();
    api()->io_free(wakeUpEvent_);
    close(wakeUps_);
}

void PulseLoop::wake() {
    const std::uint64_t once = 1;
    // Fails only while as many wake-ups are unread as a number can count.
    [[maybe_unused]] const ssize_t written = write(wakeUps_, &once, sizeof once);
}

void PulseLoop::readWakeUps() {
    std::uint64_t count = 0;
    [[maybe_unused]] const ssize_t got = read(wakeUps_, &count, sizeof count);
    onWoken_();
}

void PulseLoop::callAfter(std::chrono::milliseconds delay, std::function<void()> callback) {
    dropTimer();
    onTime_ = std::move(callback);
    timeval when{};
    pa_gettimeofday(&when);
    pa_timeval_add(&when, pa_usec_t(delay.count()) * PA_USEC_PER_MSEC);
    timer_ = api()->time_new(
        api(), &when,
        [](pa_mainloop_api *, pa_time_event *, const timeval *, void *self) {
            auto *loop = static_cast<PulseLoop *>(self);
            loop->dropTimer();
            std::exchange(loop->onTime_, nullptr)();
        },
        this);
}

void PulseLoop::dropTimer() {
    if (timer_)
        api()->time_free(std::exchange(timer_, nullptr));
}

}  // namespace pimloft
