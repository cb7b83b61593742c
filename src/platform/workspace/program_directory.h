// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/mpris_player.h"
#include "platform/workspace/desktop_entries.h"
#include "platform/workspace/identity_table.h"
#include "platform/workspace/workspace.h"
#include "platform/workspace/x11_clients.h"

#include <QHash>

namespace pimloft {

/// Who is who among the running programs: remembers of each process what it was recognised as. Main thread.
class ProgramDirectory {
public:
    struct Program {
        QString name;
        QString executable;
        Identity identity;
        QString icon;       ///< a name of the icon theme, or a path; may be empty
        quint64 start = 0;  ///< orders programs by the time of their start; 0 for one that is gone
    };

    ProgramDirectory();

    /// What the process is, going by the names of its window where it has one. A process that is gone, or
    /// that of another computer, is still recognised by these names.
    const Program &program(ProcessId process, const X11WindowNames &names);

    /// What it was recognised as last; nothing when it never was.
    const Program *known(ProcessId process) const;

    /// Which application a media player is. Its own word counts more than its process.
    std::optional<QString> identifyPlayer(const MprisPlayer &player);

    /// Forgets processes that are not among these.
    void keepOnly(const std::vector<X11Client> &clients);

    /// Called from the event loop when earlier answers may be wrong, after they were forgotten.
    std::function<void()> onChanged;

private:
    struct Known {
        QString className;
        QString instance;
        Program program;
    };
    Program recognise(ProcessId process, const X11WindowNames &names);

    DesktopEntries entries_;
    QHash<qint32, Known> known_;
};

}  // namespace pimloft
