// SPDX-License-Identifier: MIT
#pragma once

#include "platform/workspace/program_traits.h"

#include <QHash>
#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <thread>
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

/// The entries of one moment, ready to be searched. Never changes; any thread.
class DesktopEntryIndex {
public:
    /// Of entries with one name or program the one in the menus counts, then the one with the plainest id.
    explicit DesktopEntryIndex(std::vector<DesktopEntry> entries);

    /// What the program itself says counts more than names that merely agree.
    std::optional<DesktopEntry> match(const ProgramTraits &traits) const;

private:
    void add(const DesktopEntry &entry, int position);
    std::optional<DesktopEntry> find(const QHash<QString, int> &index, const QString &key) const;

    std::vector<DesktopEntry> entries_;
    // Keys are in lower case.
    QHash<QString, int> byId_;
    QHash<QString, int> byLastPart_;  ///< of "org.gnome.Nautilus": "nautilus"
    QHash<QString, int> byStartupClass_;
    QHash<QString, int> byExecutable_;
};

/// The programs that are installed on this desktop. Main thread.
///
/// A desktop has hundreds of entries: they are read on a thread of their own, when they are first asked for
/// and after a program was installed or removed. Until then the answers are those of before.
class DesktopEntries {
public:
    DesktopEntries();
    ~DesktopEntries();
    DesktopEntries(const DesktopEntries &) = delete;
    DesktopEntries &operator=(const DesktopEntries &) = delete;

    /// The entry that a running program belongs to.
    std::optional<DesktopEntry> match(const ProgramTraits &traits);

    /// Called from the event loop when the entries have been read, and earlier answers may be wrong.
    std::function<void()> onChanged;

private:
    void read();
    void take(DesktopEntryIndex index);

    struct Monitor;
    std::unique_ptr<Monitor> monitor_;
    DesktopEntryIndex index_{{}};
    QObject receiver_;  ///< of what the thread has read
    std::thread reader_;
    bool isReading_ = false;
    bool isOutdated_ = false;  ///< there was a change while they were read
};

}  // namespace pimloft
