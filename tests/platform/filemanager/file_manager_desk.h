// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/support/x_desktop.h"
#include "platform/events/x11_key_poster.h"
#include "platform/filemanager/file_managers.h"
#include "platform/scripting/finder_scripts.h"
#include "platform/workspace/x11_workspace.h"
#include "support/desktop_session.h"
#include "support/physical_input.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace pimloft::test {

/// A file manager, and how its user does in it what is not the same in all of them.
struct FileManagerUnderTest {
    const char *name;  ///< of the test
    const char *program;
    QStringList arguments = {};  ///< before the folder, which then opens in a window of its own
    bool renamesInPlace = false;
    /// Its files get the keyboard only when the user goes there.
    bool startsElsewhere = false;
    /// On a bare test desktop it opens no second window.
    bool hasOneWindow = false;
    /// It tells of files whose names are no text by names that they do not have.
    bool knowsOnlyText = false;
};
std::ostream &operator<<(std::ostream &out, const FileManagerUnderTest &manager);

/// A real file manager, its user, and the scripts that ask it. The process is shared by all tests of a
/// binary's run; each opens its own windows.
class FileManagerDesk : public testing::Test {
protected:
    FileManagerDesk();
    ~FileManagerDesk() override;
    static void TearDownTestSuite();

    /// Makes a folder of that name in the home folder, with empty files in it.
    QString makeFolder(const QString &name, const std::vector<QByteArray> &files);

    /// Opens the folder in a window of a manager that already shows another, and waits until that is in
    /// front.
    xcb_window_t open(const FileManagerUnderTest &manager, const QString &folder);
    void bringToFront(xcb_window_t window);
    void selectAll();
    /// Clicks where no file is.
    void clickBesideFiles(xcb_window_t window);

    /// What a script answers: items one per line, "none" or "unknown". Ends the test when that takes too
    /// long.
    std::string run(const QString &script);
    std::string selection() { return run(finderSelection()); }
    std::string shown() { return run(finderFolder()); }
    static QString finderSelection();
    static QString finderFolder();
    /// Selects all until the selection is this.
    void expectAllSelected(const std::string &expected, int milliseconds = 30000);
    void expectSelection(const std::string &expected);
    void expectFolder(const QString &expected);

    /// Another program copies this text; its process ends with the next copy.
    void copyText(const QByteArray &text);
    /// What pasting text comes to.
    std::string clipboardText();
    qint64 changeCount() { return pasteboard_.changeCount(); }

    DesktopSession &session() { return currentSession(); }
    X11Session xSession_;
    X11RawInput input_{xSession_};
    X11Keyboard keyboard_{xSession_, input_};
    X11ActiveWindow active_{xSession_};
    X11Workspace workspace_;
    X11Pasteboard pasteboard_{[](ProcessId) { return std::nullopt; }};
    X11KeyPoster keys_{keyboard_, [] {}, [] { return ShortcutChord::control; }};
    std::unique_ptr<FinderScripts> scripts_;
    XDesktop desktop_;
    PhysicalInput hands_;
    QString desktopFolder_;
    bool startsElsewhere_ = false;
    bool hasOneWindow_ = false;
    xcb_window_t openAnother(const FileManagerUnderTest &manager, const QString &folder);
    std::vector<xcb_window_t> opened_;
    std::vector<std::unique_ptr<QProcess>> programs_;
    double longest_ = 0;  ///< that a script took, in milliseconds
};

}  // namespace pimloft::test
