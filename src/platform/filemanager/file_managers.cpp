// SPDX-License-Identifier: MIT
#include "platform/filemanager/file_managers.h"

#include "platform/x11/x11_active_window.h"

#include <utility>

namespace pimloft {

namespace {

const QString notInFront = QStringLiteral("No file manager is in front.");
const QString dialogInFront = QStringLiteral("A dialog of the file manager is in front.");
const QString selectionUnknown =
    QStringLiteral("What is selected in the file manager could not be found out.");
const QString folderUnknown = QStringLiteral("Which folder the file manager shows could not be found out.");

}  // namespace

FileManagers::FileManagers(Surroundings surroundings)
    : surroundings_(std::move(surroundings)), copy_(surroundings_.pasteboard),
      accessible_(surroundings_.bus), tools_{.bus = surroundings_.bus,
                                             .keys = surroundings_.keys,
                                             .copy = copy_,
                                             .accessible = accessible_,
                                             .hasKeyboard =
                                                 [this](xcb_window_t window) {
                                                     return activeWindow(surroundings_.session) == window;
                                                 },
                                             .home = surroundings_.home} {
}

FileManagers::~FileManagers() {
    stop();
}

void FileManagers::askSelection(Done done) {
    stop();
    // The next question is often for the folder to which the files go.
    accessible_.prepare();
    done_ = std::move(done);
    const auto window = fileManagerInFront(surroundings_.session, surroundings_.isFileManager);
    if (!window || window->part == FileManagerWindow::Part::dialog)
        return answer({{}, window ? dialogInFront : notInFront});
    auto question = std::make_unique<SelectionQuestion>(
        tools_, *window, [this, kind = window->kind](const CopiedContent &content) {
            const bool isKnown =
                content.kind == CopiedContent::files || content.kind == CopiedContent::nothing;
            answer(isKnown ? FileManagerAnswer{selectedPaths(content, kind), std::nullopt}
                           : FileManagerAnswer{{}, selectionUnknown});
        });
    SelectionQuestion &asked = *question;
    question_ = std::move(question);
    asked.ask();
}

void FileManagers::askFolder(Done done) {
    stop();
    done_ = std::move(done);
    const auto window = fileManagerInFront(surroundings_.session, surroundings_.isFileManager);
    if (!window || window->part == FileManagerWindow::Part::desktop)
        return answer({{surroundings_.desktop()}, std::nullopt});
    if (window->part == FileManagerWindow::Part::dialog)
        return answer({{}, dialogInFront});
    auto question = std::make_unique<
        FolderQuestion>(tools_, *window, [this](const std::optional<QByteArray> &folder) {
        answer(folder ? FileManagerAnswer{{*folder}, std::nullopt} : FileManagerAnswer{{}, folderUnknown});
    });
    FolderQuestion &asked = *question;
    question_ = std::move(question);
    asked.ask();
}

void FileManagers::answer(FileManagerAnswer answer) {
    // It is the question that is speaking.
    if (question_)
        question_.release()->deleteLater();
    if (const Done done = std::exchange(done_, nullptr))
        done(std::move(answer));
}

void FileManagers::stop() {
    done_ = nullptr;
    question_.reset();
    copy_.stop();
    accessible_.stop();
}

}  // namespace pimloft
