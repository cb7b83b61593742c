// SPDX-License-Identifier: MIT
#pragma once

#include "platform/filemanager/folder_routes.h"
#include "platform/filemanager/selection_question.h"

namespace pimloft {

/// Asks which folder a file manager's window shows. No answer is a guess: but for the program's own word, a
/// folder has to be one whose changes the program follows. Main thread; waits for nobody.
class FolderQuestion : public QObject {
    Q_OBJECT

public:
    using Done = std::function<void(std::optional<QByteArray> folder)>;

    /// `done` is called once, from the event loop. Who destroys the question before that stops the tools,
    /// too.
    FolderQuestion(const FileManagerTools &tools, FileManagerWindow window, Done done);
    ~FolderQuestion() override;

    void ask() { tryNext(); }

private:
    void tryNext();
    void tryOpenLocations();
    void tryPathBar();
    void trySelection();
    void tryLocationAction();
    void readLocationField(int looksLeft);
    void hideLocationField();
    void tryLocationKeys();
    void check(const std::vector<QByteArray> &folders,
               std::function<void(std::optional<QByteArray>)> checked);
    void finishOrTryNext(const std::optional<QByteArray> &folder);

    const FileManagerTools &tools_;
    const FileManagerWindow window_;
    const std::span<const FolderRoute> routes_;
    std::size_t next_ = 0;
    std::unique_ptr<SelectionQuestion> selection_;
    bool isTextInFront_ = false;         ///< the user is typing
    bool isLocationFieldShown_ = false;  ///< by this question
    Done done_;
};

}  // namespace pimloft
