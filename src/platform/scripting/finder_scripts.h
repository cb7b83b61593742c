// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/linux_scripting.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QTimer>

#include <deque>

namespace pimloft {

class FileManagers;

/// A path as scripts answer it: as it is, or as a percent-encoded "file://" URI where it is no text. Pure.
QString scriptedPath(const QByteArray &path);

/// Carries out the scripts that ask the file manager, each within half a second. Main thread.
class FinderScripts final : public QObject, public ScriptHandler {
    Q_OBJECT

public:
    explicit FinderScripts(std::unique_ptr<FileManagers> fileManagers);
    ~FinderScripts() override;

    bool handle(const QString &text, Answer answer) override;

private:
    struct Script {
        bool asksSelection;
        Answer answer;
        QDeadlineTimer deadline;
    };
    void runNext();
    void finish(ScriptResult result);

    std::unique_ptr<FileManagers> fileManagers_;
    std::deque<Script> scripts_;  ///< the first is being carried out
    QTimer timeout_;
};

}  // namespace pimloft
