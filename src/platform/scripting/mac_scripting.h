// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/scripting.h"

namespace pimloft {

/// Scripts as the system itself runs them: each in a turn of the event loop of its own. Main thread.
class MacScripting final : public ScriptingService {
public:
    void run(const QString &text, QObject *context, Done done) override;

private:
    QObject scripts_;  ///< receives them, one after the other
};

}  // namespace pimloft
