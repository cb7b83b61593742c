// SPDX-License-Identifier: MIT
#include "platform/scripting/linux_scripting.h"

#include <QPointer>

namespace pimloft {

LinuxScripting::LinuxScripting(std::vector<std::unique_ptr<ScriptHandler>> handlers)
    : handlers_(std::move(handlers)) {
}

void LinuxScripting::run(const QString &text, QObject *context, Done done) {
    const auto answer = [context = QPointer(context), done = std::move(done)](const ScriptResult &result) {
        if (context)
            QMetaObject::invokeMethod(
                context, [done, result] { done(result); }, Qt::QueuedConnection);
    };
    for (const auto &handler : handlers_)
        if (handler->handle(text, answer))
            return;
    answer({.items = {}, .error = QStringLiteral("The script is not one that this desktop understands.")});
}

}  // namespace pimloft
