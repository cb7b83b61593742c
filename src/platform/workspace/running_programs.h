// SPDX-License-Identifier: MIT
#pragma once

#include "platform/workspace/workspace.h"

#include <vector>

namespace pimloft {

/// A process that may be an application.
struct RunningProgram {
    Application application;  ///< its policy is not decided yet
    QString executable;       ///< base name of the running file
    quint64 start = 0;        ///< orders programs by the time of their start
    bool hasWindows = false;  ///< in the task list
};

/// The applications among them, in the order of their start: a program with windows is regular, another one
/// accessory if the desktop knows it, else prohibited. The helpers that a program runs beside its main
/// process (renderers, its tray icon) are no applications of their own. Pure; any thread.
std::vector<Application> applicationsAmong(std::vector<RunningProgram> programs);

}  // namespace pimloft
