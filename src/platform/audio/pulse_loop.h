// SPDX-License-Identifier: MIT
#pragma once

#include <pulse/mainloop-api.h>
#include <pulse/thread-mainloop.h>

#include <chrono>
#include <functional>
#include <memory>

namespace pimloft {

/// The thread that talks to the sound server.
class PulseLoop {
public:
    /// `onWoken` is called on the thread: once after it has started, and after each `wake`.
    explicit PulseLoop(std::function<void()> onWoken);
    ~PulseLoop();
    PulseLoop(const PulseLoop &) = delete;
    PulseLoop &operator=(const PulseLoop &) = delete;

    /// Any thread; never waits.
    void wake();
    /// Ends the thread, once what is being called has returned. What was made with `api` is to be given up
    /// between this and the destruction. The main thread.
    void stop();

    /// For use on the thread itself.
    pa_mainloop_api *api() const { return pa_threaded_mainloop_get_api(loop_.get()); }
    /// Calls back once, in place of what was asked for before. On the thread.
    void callAfter(std::chrono::milliseconds delay, std::function<void()> callback);

private:
    struct Free {
        void operator()(pa_threaded_mainloop *loop) const { pa_threaded_mainloop_free(loop); }
    };
    void readWakeUps();
    void dropTimer();

    std::function<void()> onWoken_;
    std::function<void()> onTime_;
    std::unique_ptr<pa_threaded_mainloop, Free> loop_;
    int wakeUps_;  ///< a descriptor that counts them
    pa_io_event *wakeUpEvent_ = nullptr;
    pa_time_event *timer_ = nullptr;
};

}  // namespace pimloft
