// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <functional>

namespace pimloft {

/// Turns the system's requests to end (interrupt, terminate, hang-up) into a call. One at a time; main
/// thread.
class QuitSignals {
public:
    /// `onQuit` is called from the event loop, once per request.
    explicit QuitSignals(std::function<void()> onQuit);
    /// The requests end the program at once again.
    ~QuitSignals();
    QuitSignals(const QuitSignals &) = delete;
    QuitSignals &operator=(const QuitSignals &) = delete;

private:
    struct Pipe {
        Pipe();
        ~Pipe();
        int readEnd = -1;
        int writeEnd = -1;
    };
    Pipe pipe_;
    QSocketNotifier notifier_;
};

}  // namespace pimloft
