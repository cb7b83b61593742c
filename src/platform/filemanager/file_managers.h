// SPDX-License-Identifier: MIT
#pragma once

#include "platform/filemanager/folder_question.h"

namespace pimloft {

/// What a file manager was found to have, or a sentence that says why that could not be found out. A value.
struct FileManagerAnswer {
    std::vector<QByteArray> paths;
    std::optional<QString> error;
};

/// The file manager in front, whichever it is. Main thread; waits for nobody; one question at a time.
class FileManagers : public QObject {
    Q_OBJECT

public:
    struct Surroundings {
        X11Session &session;
        X11Pasteboard &pasteboard;
        KeyPoster &keys;
        QDBusConnection bus;
        std::function<bool(xcb_window_t)> isFileManager;  ///< whether its program is one
        QByteArray home;                                  ///< the home folder's path
        std::function<QByteArray()> desktop;              ///< the path of the folder with the desktop's files
    };
    explicit FileManagers(Surroundings surroundings);
    ~FileManagers() override;

    using Done = std::function<void(FileManagerAnswer)>;

    /// The selected files in their order; none where none is selected.
    void askSelection(Done done);
    /// The folder that the window in front shows: the desktop's where it is not a file manager's.
    void askFolder(Done done);
    /// Ends the question without an answer.
    void stop();

private:
    void answer(FileManagerAnswer answer);

    Surroundings surroundings_;
    FileManagerCopy copy_;
    AccessibleReader accessible_;
    FileManagerTools tools_;
    std::unique_ptr<QObject> question_;
    Done done_;
};

}  // namespace pimloft
