// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QString>

namespace pimloft {

/// How long ago `then` was, in the largest whole unit: "5 min. ago", or "in 5 min." for a time to come. Pure;
/// any thread.
QString relativeTime(const QDateTime &then, const QDateTime &now);

}  // namespace pimloft
