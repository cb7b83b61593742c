// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/scripting.h"

#include <memory>

namespace pimloft {

/// Carries out one kind of script. Main thread.
class ScriptHandler {
public:
    virtual ~ScriptHandler() = default;

    using Answer = std::function<void(ScriptResult)>;

    /// False where the text is not of its kind; then `answer` is not called. Otherwise it is called exactly
    /// once, at any time.
    virtual bool handle(const QString &text, Answer answer) = 0;
};

/// Scripts on a desktop that has no language for them: each kind of text that the program knows is recognised
/// and carried out in the desktop's own way. Main thread.
class LinuxScripting final : public ScriptingService {
public:
    explicit LinuxScripting(std::vector<std::unique_ptr<ScriptHandler>> handlers);

    void run(const QString &text, QObject *context, Done done) override;

private:
    std::vector<std::unique_ptr<ScriptHandler>> handlers_;
};

}  // namespace pimloft
