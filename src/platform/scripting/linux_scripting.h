// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/scripting.h"

#include <functional>
#include <memory>
#include <vector>

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
    using Handlers = std::vector<std::unique_ptr<ScriptHandler>>;

    /// `renewed` is asked before a script beside which no other is under way: it answers other handlers when
    /// what those before work with has gone, and none while they are of use.
    explicit LinuxScripting(
        Handlers handlers, std::function<Handlers()> renewed = [] { return Handlers(); });

    void run(const QString &text, QObject *context, Done done) override;

private:
    Handlers handlers_;
    const std::function<Handlers()> renewed_;
    const std::shared_ptr<int> underWay_ = std::make_shared<int>(0);
};

}  // namespace pimloft
