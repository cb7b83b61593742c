// SPDX-License-Identifier: MIT
#pragma once

#include "platform/filemanager/file_manager_window.h"
#include "platform/filemanager/window_ping.h"
#include "platform/pasteboard/x11_pasteboard.h"

#include <QDeadlineTimer>
#include <QTimer>

#include <memory>

namespace pimloft {

/// What a file manager's window copied when it was made to.
struct CopiedContent {
    enum Kind {
        files,    ///< `bytes` are the URLs
        text,     ///< `bytes` are the text: a text has the keyboard, not the files
        nothing,  ///< it read the keys, and had nothing to copy
        unknown,  ///< the clipboard could not be lent, it hangs, or it copied what is neither
    };
    Kind kind = unknown;
    QByteArray bytes = {};
};

/// Makes a window copy, and reads what it copied; the clipboard is afterwards as it was, and nobody has
/// counted a copy. Main thread; one at a time; waits for nobody.
class FileManagerCopy : public QObject {
    Q_OBJECT

public:
    explicit FileManagerCopy(X11Pasteboard &pasteboard);
    ~FileManagerCopy() override;

    using Done = std::function<void(CopiedContent)>;
    /// `act` makes the window copy, and calls what it is given: true once that is on its way, false when it
    /// cannot be done.
    using Act = std::function<void(std::function<void(bool)>)>;

    /// A window that has still to deal with what it was sent before is not sent more.
    void start(const FileManagerWindow &window, Act act, Done done);
    /// Ends it without an answer. What the window copies later is still taken back from it.
    void stop();

private:
    void lend(const FileManagerWindow &window, Act act);
    void wait(bool answersPing);
    void ping(int round);
    void fail();
    void ended(const LoanResult &result);

    X11Pasteboard &pasteboard_;
    std::uint64_t loan_ = 0;
    std::unique_ptr<QObject> context_;  ///< of the callbacks of the current one
    std::unique_ptr<WindowPing> ping_;
    QTimer grace_;
    xcb_window_t window_ = XCB_NONE;
    bool hasActed_ = false;               ///< and the window has perhaps not read it
    xcb_window_t busyWindow_ = XCB_NONE;  ///< has not dealt with what it was sent
    QDeadlineTimer busy_;                 ///< for which that is believed
    Done done_;
};

}  // namespace pimloft
