// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <chrono>

namespace pimloft {

/// A moment on a clock that is never set.
using Instant = std::chrono::steady_clock::time_point;

/// Where the program reads the time, handed in so that a test can turn it. Any thread.
class Clock {
public:
    virtual ~Clock() = default;

    /// For intervals: never goes backwards.
    virtual Instant now() const = 0;
    /// For dates that are shown or stored: the user can set it.
    virtual QDateTime wallTime() const = 0;
};

/// The clocks of this computer.
class SystemClock final : public Clock {
public:
    Instant now() const override { return std::chrono::steady_clock::now(); }
    QDateTime wallTime() const override { return QDateTime::currentDateTimeUtc(); }
};

}  // namespace pimloft
