// SPDX-License-Identifier: MIT
#include "platform/scripting/mac_scripting.h"

#include "platform/scripting/mac_apple_script.h"

#include <QPointer>

namespace pimloft {

namespace {

ScriptResult resultOf(const MacScriptAnswer &answer) {
    ScriptResult result;
    for (const std::string &item : answer.items)
        result.items.push_back(QString::fromStdString(item));
    if (answer.error)
        result.error = QString::fromStdString(*answer.error);
    return result;
}

}  // namespace

void MacScripting::run(const QString &text, QObject *context, Done done) {
    QMetaObject::invokeMethod(
        &scripts_,
        [text, context = QPointer(context), done = std::move(done)] {
            const ScriptResult result = resultOf(runAppleScript(text.toStdString()));
            if (context)
                done(result);
        },
        Qt::QueuedConnection);
}

}  // namespace pimloft
