// SPDX-License-Identifier: MIT
#pragma once

#include "base/file_url.h"
#include "base/keys.h"
#include "finderfix/file_moves.h"
#include "finderfix/move_alerts.h"

#include <QObject>

#include <deque>
#include <memory>
#include <vector>

namespace pimloft {

class DialogService;
class FileService;
class HotkeyManager;
class PasteboardService;
class ScriptingService;
class WorkspaceService;
struct ScriptResult;

/// Lets Command+X and Command+V move files in the file manager. Main thread; the files are moved in the
/// background.
///
/// What the file manager is asked takes a moment. A key that is pressed meanwhile waits for its turn, so that
/// a paste finds what the cut before it has taken.
class CutPasteEngine : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool isActive READ isActive NOTIFY isActiveChanged)

public:
    /// What it works with; all of it outlives the engine.
    struct Collaborators {
        HotkeyManager &hotkeys;
        WorkspaceService &workspace;
        ScriptingService &scripting;
        PasteboardService &pasteboard;
        FileService &files;
        DialogService &dialogs;
    };

    static CutPasteEngine &shared();
    explicit CutPasteEngine(const Collaborators &collaborators);
    ~CutPasteEngine() override;

    /// Takes the two shortcuts, away from every other program; does nothing when it has them.
    void start();
    /// Forgets them and whatever the file manager has not answered yet. What was cut stays cut, and moves
    /// that have begun go on.
    void stop();

    bool isActive() const { return isActive_; }
    /// The files that wait for a paste, in the file manager's order.
    const std::vector<FileUrl> &cutBuffer() const { return cutBuffer_; }
    std::uint32_t cutHotkeyID() const { return cutHotkeyID_; }
    std::uint32_t pasteHotkeyID() const { return pasteHotkeyID_; }

signals:
    void isActiveChanged();

private:
    enum class Press { cut, paste };
    std::uint32_t registerHotkey(KeyCode key, Press press);
    bool isFinderFrontmost() const;
    void take(Press press);
    void carryOutNext();
    void ask(const QString &script, void (CutPasteEngine::*handle)(const ScriptResult &));
    void cut(const ScriptResult &selection);
    void paste(const ScriptResult &target);

    const Collaborators with_;
    bool isActive_ = false;
    std::vector<FileUrl> cutBuffer_;
    std::uint32_t cutHotkeyID_ = 0;
    std::uint32_t pasteHotkeyID_ = 0;
    std::deque<Press> presses_;           ///< the first one is being carried out
    std::unique_ptr<QObject> questions_;  ///< destroying it drops answers that have not come yet
    FileMoves moves_;
    MoveAlerts alerts_;
};

}  // namespace pimloft
