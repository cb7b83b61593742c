// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>

#include <algorithm>
#include <compare>

namespace pimloft {

/// A point in time as the history keeps it: seconds since 2001-01-01 00:00:00 UTC. A value; any thread.
struct ReferenceTime {
    double seconds = 0;

    static ReferenceTime from(const QDateTime &time) {
        return {double(time.toMSecsSinceEpoch() - epochMilliseconds) / 1000};
    }
    /// To the millisecond, in UTC. A file may hold times that no calendar goes to; these are as far away as
    /// any.
    QDateTime toDateTime() const {
        const double within = std::clamp(seconds, -furthest, furthest);
        return QDateTime::fromMSecsSinceEpoch(qRound64(within * 1000) + epochMilliseconds, Qt::UTC);
    }

    friend auto operator<=>(const ReferenceTime &, const ReferenceTime &) = default;

private:
    static constexpr double furthest = 1e12;                      ///< some 30,000 years
    static constexpr qint64 epochMilliseconds = 978'307'200'000;  ///< from 1970 to 2001
};

}  // namespace pimloft
