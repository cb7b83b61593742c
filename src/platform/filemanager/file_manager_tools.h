// SPDX-License-Identifier: MIT
#pragma once

#include "platform/events/key_poster.h"
#include "platform/filemanager/accessible_reader.h"
#include "platform/filemanager/file_manager_copy.h"

namespace pimloft {

/// What a question to a file manager is asked with. The references outlive every question.
struct FileManagerTools {
    QDBusConnection bus;  ///< the session's
    KeyPoster &keys;
    FileManagerCopy &copy;
    AccessibleReader &accessible;
    std::function<bool(xcb_window_t)> hasKeyboard;  ///< whether typing goes to the window
    QByteArray home;                                ///< the home folder's path
};

}  // namespace pimloft
