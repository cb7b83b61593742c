// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace pimloft {

/// What a script came to. A value.
struct ScriptResult {
    std::vector<QString> items;    ///< what it answered, in order
    std::optional<QString> error;  ///< a sentence in English; nothing when it ran
};

/// Runs scripts that tell other programs what to do. Main thread.
class ScriptingService {
public:
    virtual ~ScriptingService() = default;

    using Done = std::function<void(ScriptResult)>;

    /// `done` is called exactly once, queued, but never after `context` is gone; the script itself runs to
    /// its end. Scripts for one program run in the order in which they were given. A text that this desktop
    /// cannot make sense of is an error.
    virtual void run(const QString &text, QObject *context, Done done) = 0;
};

}  // namespace pimloft
