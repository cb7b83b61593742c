// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/support/desktop_test.h"

#include <string>

namespace pimloft::test {

/// A test of what is copied and pasted in real programs, with Pimloft running.
class ClipboardDesk : public DesktopTest {
protected:
    ~ClipboardDesk() override;

    /// Starts Pimloft, and waits until its clipboard shortcuts are live too.
    void startWatching();

    /// The history in its file, the newest entry first: "text: word", "fileURL: file:///a", "image"...
    std::vector<std::string> history();
    /// Waits for the newest entry.
    void expectNewest(const std::string &entry);

    /// Another program copies, and Pimloft has taken it in.
    void copyText(const QByteArray &text);
    void copy(const QString &program, const QStringList &arguments, const QByteArray &input = {});

    /// Waits for a line that the program prints that copied last.
    void expectSaying(const char *line);

    /// An editor that is empty, has the keyboard, and whose content `content` answers.
    enum class Editor { qt, gtk, xterm };
    xcb_window_t openEditor(Editor editor);
    /// What is in it. That of a terminal is there once Return was pressed.
    std::string content() const;
    void expectContent(const std::string &expected);
    /// A file manager showing a folder, with the keyboard.
    xcb_window_t openFileManager(const QString &folder);
    /// A file in the home folder, made with its folder if needed.
    QString makeFile(const QString &path);

    bool isPopupOpen() { return panelFrame().has_value(); }
    /// Opens the popup in the middle of the screen by its shortcut.
    void openPopup();
    /// Double-clicks the row; returns when the popup is gone.
    void pasteRow(int row);
    QPoint row(int number);

    static constexpr QPoint middle{800, 500};

private:
    std::vector<std::unique_ptr<QProcess>> programs_;
    QString contentFile_;
};

}  // namespace pimloft::test
