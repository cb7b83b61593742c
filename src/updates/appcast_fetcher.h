// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QUrl>

#include <functional>
#include <optional>

namespace pimloft {

/// Gets documents from the network. Main thread.
class AppcastFetcher {
public:
    /// The document, or nothing when it cannot be had. Why is not told: nobody would be shown it.
    using Done = std::function<void(std::optional<QByteArray> document)>;

    /// Ends what is under way without an answer.
    virtual ~AppcastFetcher() = default;

    /// Calls `done` once, queued. Several at a time are independent of each other.
    virtual void fetch(const QUrl &url, Done done) = 0;
};

}  // namespace pimloft
