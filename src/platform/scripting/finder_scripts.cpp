// SPDX-License-Identifier: MIT
#include "platform/scripting/finder_scripts.h"

#include "platform/filemanager/file_managers.h"
#include "platform/scripting/finder_script.h"

#include <QUrl>

#include <utility>

namespace pimloft {

namespace {

using namespace std::chrono_literals;

/// Half a second in all, with the way to whoever asked.
constexpr auto longestScript = 470ms;

}  // namespace

QString scriptedPath(const QByteArray &path) {
    return path.isValidUtf8() ? QString::fromUtf8(path)
                              : QStringLiteral("file://") + QString::fromLatin1(path.toPercentEncoding("/"));
}

FinderScripts::FinderScripts(std::unique_ptr<FileManagers> fileManagers)
    : fileManagers_(std::move(fileManagers)) {
    timeout_.setSingleShot(true);
    timeout_.setTimerType(Qt::PreciseTimer);
    connect(&timeout_, &QTimer::timeout, this, [this] {
        fileManagers_->stop();
        finish({.items = {}, .error = QStringLiteral("The file manager did not answer in time.")});
    });
}

FinderScripts::~FinderScripts() = default;

bool FinderScripts::handle(const QString &text, Answer answer) {
    const bool asksSelection = text == finderSelectionScript();
    if (!asksSelection && text != finderTargetScript())
        return false;
    scripts_.push_back({asksSelection, std::move(answer), QDeadlineTimer(longestScript, Qt::PreciseTimer)});
    if (scripts_.size() == 1)
        runNext();
    return true;
}

void FinderScripts::runNext() {
    const Script &script = scripts_.front();
    timeout_.start(std::chrono::milliseconds(script.deadline.remainingTime()));
    const auto answered = [this](const FileManagerAnswer &answer) {
        ScriptResult result{.items = {}, .error = answer.error};
        for (const QByteArray &path : answer.paths)
            result.items.push_back(scriptedPath(path));
        finish(std::move(result));
    };
    if (script.asksSelection)
        fileManagers_->askSelection(answered);
    else
        fileManagers_->askFolder(answered);
}

void FinderScripts::finish(ScriptResult result) {
    timeout_.stop();
    const Answer answer = std::move(scripts_.front().answer);
    scripts_.pop_front();
    answer(std::move(result));
    if (!scripts_.empty())
        runNext();
}

}  // namespace pimloft
