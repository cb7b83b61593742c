// SPDX-License-Identifier: MIT
#pragma once

#include "platform/workspace/x11_clients.h"

#include <functional>
#include <optional>

namespace pimloft {

/// The file managers whose ways are known.
enum class FileManagerKind { thunar, pcmanfm, pcmanfmQt, nemo, caja, nautilus, dolphin, other };

/// By what the window calls its program. Pure.
FileManagerKind fileManagerKind(const X11WindowNames &names);

/// A window of a file manager, as it was when it was looked at. A value.
struct FileManagerWindow {
    enum class Part {
        folder,   ///< shows a folder
        desktop,  ///< the desktop with its icons
        dialog,   ///< asks something, or belongs to another window
    };
    FileManagerKind kind = FileManagerKind::other;
    Part part = Part::folder;
    xcb_window_t window = XCB_NONE;
    ProcessId process{};
    QString title;
    QString role;        ///< WM_WINDOW_ROLE
    QString busName;     ///< of its connection to the session bus, where it tells
    QString objectPath;  ///< by which it is known there
    bool answersPing = false;
};

/// The file manager's window that has the keyboard; nothing where another program has it, or none.
/// `isFileManager` tells of a window what program it is. Main thread; takes a handful of round trips.
std::optional<FileManagerWindow> fileManagerInFront(X11Session &session,
                                                    const std::function<bool(xcb_window_t)> &isFileManager);

}  // namespace pimloft
