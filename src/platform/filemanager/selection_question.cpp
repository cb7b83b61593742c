// SPDX-License-Identifier: MIT
#include "platform/filemanager/selection_question.h"

#include "platform/filemanager/dolphin_window.h"
#include "platform/pasteboard/copied_files.h"

#include <QCollator>
#include <QLocale>

#include <algorithm>

namespace pimloft {

SelectionQuestion::SelectionQuestion(const FileManagerTools &tools, FileManagerWindow window, Done done)
    : tools_(tools), window_(std::move(window)), done_(std::move(done)) {
}

void SelectionQuestion::ask() {
    if (window_.kind == FileManagerKind::dolphin) {
        askDolphin();
        return;
    }
    tools_.copy.start(
        window_,
        [this](const std::function<void(bool)> &acted) {
            const bool isInFront = tools_.hasKeyboard(window_.window);
            if (isInFront)
                tools_.keys.post(Key::c, KeyFlags::command);
            acted(isInFront);
        },
        [this](const CopiedContent &content) { copied(content); });
}

/// It would show that it has nothing to copy, and is asked before.
void SelectionQuestion::askDolphin() {
    const DolphinWindow dolphin(tools_.bus, window_, this);
    dolphin.hasSelection([this, dolphin](std::optional<bool> hasSelection) {
        if (!hasSelection.value_or(false)) {
            done_({hasSelection ? CopiedContent::nothing : CopiedContent::unknown});
            return;
        }
        tools_.copy.start(
            window_, [dolphin](const std::function<void(bool)> &acted) { dolphin.copy(acted); },
            [this](const CopiedContent &content) { done_(content); });
    });
}

void SelectionQuestion::copied(const CopiedContent &content) {
    // This one copies the name of the file that the keyboard is at, where none is selected.
    const bool isAmbiguousText =
        content.kind == CopiedContent::text && window_.kind == FileManagerKind::pcmanfmQt;
    if (isAmbiguousText)
        askWhatHasTheKeyboard(CopiedContent::unknown);
    else if (content.kind == CopiedContent::nothing)
        askWhatHasTheKeyboard(CopiedContent::nothing);
    else
        done_(content);
}

/// Copying does nothing either where the keyboard is in a text in which nothing is selected.
void SelectionQuestion::askWhatHasTheKeyboard(CopiedContent::Kind otherwise) {
    // The one does not tell, the other takes too long to.
    if (window_.kind == FileManagerKind::pcmanfm || window_.kind == FileManagerKind::nautilus) {
        done_({otherwise});
        return;
    }
    tools_.accessible.read(
        window_.process, window_.title, [this, otherwise](const std::optional<AccessibleTree> &tree) {
            if (!tree)
                done_({otherwise});
            else
                done_({hasFocusedText(*tree) ? CopiedContent::text : CopiedContent::nothing});
        });
}

std::vector<QByteArray> selectedPaths(const CopiedContent &content, FileManagerKind kind) {
    std::vector<QByteArray> paths = localPaths(content.bytes);
    // The others tell them as they stand in the window.
    if (kind == FileManagerKind::pcmanfmQt) {
        // Without a language numbers would not count as such.
        const QLocale user;
        QCollator order(user.language() == QLocale::C ? QLocale(QLocale::English) : user);
        order.setNumericMode(true);
        order.setCaseSensitivity(Qt::CaseInsensitive);
        std::stable_sort(paths.begin(), paths.end(), [&order](const QByteArray &one, const QByteArray &two) {
            return order.compare(QString::fromUtf8(one), QString::fromUtf8(two)) < 0;
        });
    }
    return paths;
}

}  // namespace pimloft
