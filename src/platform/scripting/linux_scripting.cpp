// SPDX-License-Identifier: MIT
#include "platform/scripting/linux_scripting.h"

#include <QPointer>

namespace pimloft {

LinuxScripting::LinuxScripting(Handlers handlers, std::function<Handlers()> renewed)
    : handlers_(std::move(handlers)), renewed_(std::move(renewed)) {
}

void LinuxScripting::run(const QString &text, QObject *context, Done done) {
    if (*underWay_ == 0)
        if (Handlers renewed = renewed_(); !renewed.empty())
            handlers_ = std::move(renewed);
    ++*underWay_;
    const auto answer = [context = QPointer(context), done = std::move(done),
                         underWay = underWay_](const ScriptResult &result) {
        --*underWay;
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
