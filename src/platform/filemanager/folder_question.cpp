// SPDX-License-Identifier: MIT
#include "platform/filemanager/folder_question.h"

#include "platform/background.h"
#include "platform/filemanager/dolphin_window.h"
#include "platform/filemanager/inotify_watches.h"
#include "platform/filemanager/open_locations.h"
#include "platform/filemanager/path_bar.h"
#include "platform/pasteboard/copied_files.h"

namespace pimloft {

namespace {

/// Control and this put the keyboard to the location field, and this back to the files.
constexpr KeyCode locationKey{37};
constexpr KeyCode escapeKey{53};

/// A location field that was asked for is there after some of these looks.
constexpr int looksForField = 6;

}  // namespace

FolderQuestion::FolderQuestion(const FileManagerTools &tools, FileManagerWindow window, Done done)
    : tools_(tools), window_(std::move(window)), routes_(folderRoutes(window_.kind)), done_(std::move(done)) {
}

FolderQuestion::~FolderQuestion() {
    hideLocationField();
}

void FolderQuestion::tryNext() {
    if (next_ == routes_.size()) {
        done_(std::nullopt);
        return;
    }
    switch (routes_[next_++]) {
    case FolderRoute::openLocations:
        return tryOpenLocations();
    case FolderRoute::title:
        return check(pathsInTitle(window_.title), [this](const auto &folder) { finishOrTryNext(folder); });
    case FolderRoute::pathBar:
        return tryPathBar();
    case FolderRoute::selection:
        return trySelection();
    case FolderRoute::locationAction:
        return tryLocationAction();
    case FolderRoute::locationKeys:
        return tryLocationKeys();
    }
}

void FolderQuestion::finishOrTryNext(const std::optional<QByteArray> &folder) {
    if (folder)
        done_(folder);
    else
        tryNext();
}

/// Answers the one of these folders that the program follows.
void FolderQuestion::check(const std::vector<QByteArray> &folders,
                           std::function<void(std::optional<QByteArray>)> checked) {
    if (folders.empty()) {
        checked(std::nullopt);
        return;
    }
    inBackground(
        this,
        [folders, process = window_.process] {
            const auto watches = inotifyWatches(process);
            std::vector<QByteArray> watched;
            for (const QByteArray &folder : folders)
                if (isWatched(folder, watches))
                    watched.push_back(folder);
            return watched;
        },
        [title = window_.title, checked = std::move(checked)](const std::vector<QByteArray> &watched) {
            const QByteArray folder = folderByTitle(watched, title);
            checked(folder.isEmpty() ? std::nullopt : std::optional(folder));
        });
}

void FolderQuestion::tryOpenLocations() {
    askShownFolder(tools_.bus, window_, this, [this](const auto &folder) { finishOrTryNext(folder); });
}

void FolderQuestion::tryPathBar() {
    tools_.accessible.read(window_.process, window_.title, [this](const std::optional<AccessibleTree> &tree) {
        isTextInFront_ |= tree && hasFocusedText(*tree);
        check(tree ? pathsShown(*tree, tools_.home) : std::vector<QByteArray>(),
              [this](const auto &folder) { finishOrTryNext(folder); });
    });
}

void FolderQuestion::trySelection() {
    selection_ = std::make_unique<SelectionQuestion>(tools_, window_, [this](const CopiedContent &content) {
        isTextInFront_ |= content.kind == CopiedContent::text;
        std::vector<QByteArray> folders;
        if (content.kind == CopiedContent::files)
            if (const auto folder = commonFolder(localPaths(content.bytes)))
                folders.push_back(*folder);
        check(folders, [this](const auto &folder) { finishOrTryNext(folder); });
    });
    selection_->ask();
}

void FolderQuestion::tryLocationAction() {
    if (isTextInFront_)
        return tryNext();
    isLocationFieldShown_ = true;
    DolphinWindow(tools_.bus, window_, this).toggleLocationField([this](bool isShown) {
        isLocationFieldShown_ = isShown;
        if (isShown)
            readLocationField(looksForField);
        else
            tryNext();
    });
}

void FolderQuestion::readLocationField(int looksLeft) {
    tools_.accessible.read(window_.process, window_.title,
                           [this, looksLeft](const std::optional<AccessibleTree> &tree) {
                               check(tree ? pathsShown(*tree, tools_.home) : std::vector<QByteArray>(),
                                     [this, looksLeft](const std::optional<QByteArray> &folder) {
                                         if (!folder && looksLeft > 1)
                                             return readLocationField(looksLeft - 1);
                                         hideLocationField();
                                         finishOrTryNext(folder);
                                     });
                           });
}

void FolderQuestion::hideLocationField() {
    if (std::exchange(isLocationFieldShown_, false))
        DolphinWindow(tools_.bus, window_, &tools_.accessible).toggleLocationField([](bool) {});
}

/// The location field keeps a path that was typed but not gone to: then it is left as it is.
void FolderQuestion::tryLocationKeys() {
    if (isTextInFront_)
        return tryNext();
    tools_.copy.start(
        window_,
        [this](const std::function<void(bool)> &acted) {
            const bool isInFront = tools_.hasKeyboard(window_.window);
            if (isInFront) {
                tools_.keys.post(locationKey, KeyFlags::command);
                tools_.keys.post(Key::c, KeyFlags::command);
            }
            acted(isInFront);
        },
        [this](const CopiedContent &content) {
            std::vector<QByteArray> paths;
            if (content.kind == CopiedContent::text && content.bytes.startsWith('/'))
                paths.push_back(content.bytes);
            check(paths, [this](const std::optional<QByteArray> &folder) {
                if (folder && tools_.hasKeyboard(window_.window))
                    tools_.keys.post(escapeKey, KeyFlags::none);
                finishOrTryNext(folder);
            });
        });
}

}  // namespace pimloft
