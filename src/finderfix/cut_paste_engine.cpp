// SPDX-License-Identifier: MIT
#include "finderfix/cut_paste_engine.h"

#include "app/hotkey_manager.h"
#include "app/process.h"
#include "platform/pasteboard/pasteboard.h"
#include "platform/scripting/finder_script.h"
#include "platform/scripting/scripting.h"
#include "platform/workspace/workspace.h"

#include <QPointer>

#include <utility>

namespace pimloft {

namespace {

const QString finder = QStringLiteral("com.apple.finder");

/// What an answer names; items that are no file of this computer are left out. None where the script failed.
std::vector<FileUrl> files(const ScriptResult &answer) {
    std::vector<FileUrl> result;
    if (answer.error)
        return result;
    for (const QString &item : answer.items)
        if (auto file = FileUrl::fromText(item))
            result.push_back(*std::move(file));
    return result;
}

QByteArray lines(const std::vector<FileUrl> &files) {
    QByteArrayList urls;
    for (const FileUrl &file : files)
        urls << file.encoded();
    return urls.join('\n');
}

}  // namespace

CutPasteEngine &CutPasteEngine::shared() {
    return Process::current().shared<CutPasteEngine>([](Process &process) {
        const Platform &platform = process.platform();
        return std::make_unique<CutPasteEngine>(Collaborators{.hotkeys = HotkeyManager::shared(),
                                                              .workspace = platform.workspace,
                                                              .scripting = platform.scripting,
                                                              .pasteboard = platform.pasteboard,
                                                              .files = platform.files,
                                                              .dialogs = platform.dialogs});
    });
}

CutPasteEngine::CutPasteEngine(const Collaborators &collaborators)
    : with_(collaborators), questions_(std::make_unique<QObject>()), moves_(collaborators.files),
      alerts_(collaborators.dialogs) {
    connect(&moves_, &FileMoves::failed, &alerts_, &MoveAlerts::show);
}

CutPasteEngine::~CutPasteEngine() {
    stop();
}

void CutPasteEngine::start() {
    if (isActive_)
        return;
    cutHotkeyID_ = registerHotkey(Key::x, Press::cut);
    pasteHotkeyID_ = registerHotkey(Key::v, Press::paste);
    isActive_ = true;
    emit isActiveChanged();
}

void CutPasteEngine::stop() {
    if (!isActive_)
        return;
    with_.hotkeys.unregister(cutHotkeyID_);
    with_.hotkeys.unregister(pasteHotkeyID_);
    presses_.clear();
    questions_ = std::make_unique<QObject>();
    isActive_ = false;
    emit isActiveChanged();
}

std::uint32_t CutPasteEngine::registerHotkey(KeyCode key, Press press) {
    return with_.hotkeys.registerHotkey(key, CarbonModifiers::command, [engine = QPointer(this), press] {
        if (engine)
            engine->take(press);
    });
}

bool CutPasteEngine::isFinderFrontmost() const {
    const auto front = with_.workspace.frontmostApplication();
    return front && front->bundleId == finder;
}

void CutPasteEngine::take(Press press) {
    if (!isActive_ || !isFinderFrontmost())
        return;
    // A key that is held down says nothing new.
    if (presses_.size() > 1 && presses_.back() == press)
        return;
    presses_.push_back(press);
    if (presses_.size() == 1)
        carryOutNext();
}

void CutPasteEngine::carryOutNext() {
    while (!presses_.empty()) {
        const bool isCut = presses_.front() == Press::cut;
        // After a wait another program may be in front, whose windows the question would be about.
        if (isFinderFrontmost() && (isCut || !cutBuffer_.empty()))
            return isCut ? ask(finderSelectionScript(), &CutPasteEngine::cut)
                         : ask(finderTargetScript(), &CutPasteEngine::paste);
        presses_.pop_front();
    }
}

void CutPasteEngine::ask(const QString &script, void (CutPasteEngine::*handle)(const ScriptResult &)) {
    with_.scripting.run(script, questions_.get(), [this, handle](const ScriptResult &answer) {
        presses_.pop_front();
        (this->*handle)(answer);
        carryOutNext();
    });
}

void CutPasteEngine::cut(const ScriptResult &selection) {
    std::vector<FileUrl> selected = files(selection);
    if (selected.empty())
        return;
    cutBuffer_ = std::move(selected);
    with_.pasteboard.write({{PasteType::fileUrls, lines(cutBuffer_)}});
}

void CutPasteEngine::paste(const ScriptResult &target) {
    const std::vector<FileUrl> folders = files(target);
    if (folders.empty())
        return;
    moves_.move(std::exchange(cutBuffer_, {}), folders.front());
}

}  // namespace pimloft
