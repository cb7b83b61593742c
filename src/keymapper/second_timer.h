// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>

#include <functional>

namespace pimloft {

/// Ticks once a second while it runs. An interface, so that a test can let the seconds pass. Main thread.
class SecondTimer {
public:
    virtual ~SecondTimer() = default;

    /// The first tick comes a second from now, also when it was running before.
    virtual void start() = 0;
    virtual void stop() = 0;

    std::function<void()> onTick;
};

/// The seconds of the computer.
class QtSecondTimer final : public SecondTimer {
public:
    QtSecondTimer() {
        timer_.setTimerType(Qt::PreciseTimer);
        timer_.setInterval(std::chrono::seconds(1));
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { onTick(); });
    }

    void start() override { timer_.start(); }
    void stop() override { timer_.stop(); }

private:
    QTimer timer_;
};

}  // namespace pimloft
