// SPDX-License-Identifier: MIT
#pragma once

#include "platform/fake_log.h"
#include "platform/scripting/scripting.h"

#include <QHash>

namespace pimloft {

/// Records each script and answers as a test says: an empty success where it says nothing.
class FakeScripting final : public ScriptingService {
public:
    explicit FakeScripting(FakeLog &log) : log_(log) {}

    void run(const QString &text, QObject *context, Done done) override {
        log_.line(QStringLiteral("run: ") + text);
        QMetaObject::invokeMethod(
            context, [done = std::move(done), result = results.value(text)] { done(result); },
            Qt::QueuedConnection);
    }

    QHash<QString, ScriptResult> results;

private:
    FakeLog &log_;
};

}  // namespace pimloft
