// SPDX-License-Identifier: MIT
#include "platform/workspace/program_directory.h"

#include "platform/workspace/process_info.h"

#include <algorithm>

namespace pimloft {

ProgramDirectory::ProgramDirectory() {
    entries_.onChanged = [this] {
        known_.clear();
        if (onChanged)
            onChanged();
    };
}

const ProgramDirectory::Program &ProgramDirectory::program(ProcessId process, const X11WindowNames &names) {
    Known &known = known_[qint32(process)];
    const bool isSame = known.program.start != 0 && known.program.start == processStart(process) &&
                        known.className == names.className && known.instance == names.instance;
    if (!isSame)
        known = {names.className, names.instance, recognise(process, names)};
    return known.program;
}

ProgramDirectory::Program ProgramDirectory::recognise(ProcessId process, const X11WindowNames &names) {
    const ProcessInfo info = processInfo(process);
    const ProgramTraits traits{.windowClass = names.className,
                               .windowInstance = names.instance,
                               .gtkApplicationId = names.gtkApplicationId,
                               .executable = info.executable,
                               .launchedEntry = info.launchedEntry};
    const auto entry = entries_.match(traits);
    const Identity identity = identify(traits, entry);
    QString name = entry ? entry->name : names.className;
    if (name.isEmpty())
        name = info.name;
    return {.name = name,
            .executable = info.executable,
            .identity = identity,
            .icon = entry ? entry->icon : QString(),
            .start = processStart(process).value_or(0)};
}

std::optional<QString> ProgramDirectory::identifyPlayer(const MprisPlayer &player) {
    const ProcessInfo info = processInfo(player.processId);
    // A name on the bus is chosen by the program itself, as the class of its windows is.
    const ProgramTraits traits{.windowClass =
                                   player.desktopEntry.isEmpty() ? player.busName : player.desktopEntry,
                               .windowInstance = player.busName,
                               .gtkApplicationId = player.desktopEntry,
                               .executable = info.executable,
                               .launchedEntry = info.launchedEntry};
    std::optional<DesktopEntry> entry = entries_.match(traits);
    // A player says which entry is its own, also where that is not installed under this name.
    if (!entry && !player.desktopEntry.isEmpty())
        entry = DesktopEntry{.id = player.desktopEntry,
                             .name = {},
                             .icon = {},
                             .startupClass = {},
                             .executable = {},
                             .categories = {},
                             .mimeTypes = {}};
    return identify(traits, entry).bundleId;
}

const ProgramDirectory::Program *ProgramDirectory::known(ProcessId process) const {
    const auto found = known_.find(qint32(process));
    return found == known_.end() ? nullptr : &found->program;
}

void ProgramDirectory::keepOnly(const std::vector<X11Client> &clients) {
    known_.removeIf([&clients](QHash<qint32, Known>::iterator entry) {
        return std::none_of(clients.begin(), clients.end(), [&](const X11Client &client) {
            return client.process == ProcessId(entry.key());
        });
    });
}

}  // namespace pimloft
