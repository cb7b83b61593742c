// SPDX-License-Identifier: MIT
#pragma once

#include "platform/workspace/program_traits.h"

#include <QHash>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace pimloft {

/// An installed program as its desktop entry describes it. A value; any thread.
struct DesktopEntry {
    QString id;    ///< without ".desktop"
    QString name;  ///< in the user's language
    QString icon;  ///< a name of the icon theme, or a path
    QString startupClass;
    QString executable;  ///< base name of its program; empty where an interpreter or a launcher runs it
    QStringList categories;
    QStringList mimeTypes;
    bool isHidden = false;  ///< not in the menus
};

/// The programs that are installed on this desktop. Main thread.
///
/// The entries are read when they are first asked for, and again after a program was installed or removed.
class DesktopEntries {
public:
    DesktopEntries();
    ~DesktopEntries();
    DesktopEntries(const DesktopEntries &) = delete;
    DesktopEntries &operator=(const DesktopEntries &) = delete;

    /// The entry that a running program belongs to. What the program itself says counts more than names that
    /// merely agree, and an entry of the menus more than a hidden one.
    std::optional<DesktopEntry> match(const ProgramTraits &traits);

    /// Called from the event loop when earlier answers may be wrong.
    std::function<void()> onChanged;

private:
    void read();
    void addToIndex(const DesktopEntry &entry, int position);
    std::optional<DesktopEntry> find(const QHash<QString, int> &index, const QString &key) const;

    struct Monitor;
    std::unique_ptr<Monitor> monitor_;
    std::vector<DesktopEntry> entries_;
    // Keys are in lower case; of several entries with one key the first counts.
    QHash<QString, int> byId_;
    QHash<QString, int> byLastPart_;  ///< of "org.gnome.Nautilus": "nautilus"
    QHash<QString, int> byStartupClass_;
    QHash<QString, int> byExecutable_;
    bool isRead_ = false;
};

}  // namespace pimloft
