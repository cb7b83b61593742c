// SPDX-License-Identifier: MIT
#pragma once

#include "platform/filemanager/file_manager_tools.h"

namespace pimloft {

/// Asks a file manager's window which files are selected: makes it copy them. Main thread; waits for nobody.
class SelectionQuestion : public QObject {
    Q_OBJECT

public:
    using Done = std::function<void(CopiedContent)>;

    /// `done` is called once, from the event loop. Who destroys the question before that stops the tools,
    /// too.
    SelectionQuestion(const FileManagerTools &tools, FileManagerWindow window, Done done);

    void ask();

private:
    void askDolphin();
    void copied(const CopiedContent &content);
    void askWhatHasTheKeyboard(CopiedContent::Kind otherwise);

    const FileManagerTools &tools_;
    const FileManagerWindow window_;
    Done done_;
};

/// The files that `content` names, as they stand in the window as far as that can be known. Pure.
std::vector<QByteArray> selectedPaths(const CopiedContent &content, FileManagerKind kind);

}  // namespace pimloft
