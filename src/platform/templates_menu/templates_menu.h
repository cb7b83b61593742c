// SPDX-License-Identifier: MIT
#pragma once

#include "base/file_url.h"

#include <QByteArray>

#include <vector>

namespace pimloft {

/// A file that the user can make anew, with what is in it at first. A value.
struct NewFileKind {
    QByteArray name;  ///< "Text File.txt"
    QByteArray content;
    bool isExecutable = false;
};

/// What the file managers' menus offer for making new files. Main thread; returns at once. Entries stay when
/// the program ends.
class TemplatesMenuService {
public:
    virtual ~TemplatesMenuService() = default;

    /// Offers these in place of what was offered before. A template of the user's own comes before a kind of
    /// the same name. What the user has put into the menu is left alone, and an entry that the user took out
    /// of it stays out until the next `withdraw`.
    virtual void offer(std::vector<NewFileKind> kinds, std::vector<FileUrl> templates) = 0;
    /// Takes out what was offered, as far as nobody has changed it.
    virtual void withdraw() = 0;
};

}  // namespace pimloft
