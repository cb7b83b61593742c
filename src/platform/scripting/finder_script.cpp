// SPDX-License-Identifier: MIT
#include "platform/scripting/finder_script.h"

namespace pimloft {

QString finderSelectionScript() {
    return QStringLiteral("tell application \"Finder\"\n"
                          "    set theSelection to selection\n"
                          "    set thePaths to {}\n"
                          "    repeat with theItem in theSelection\n"
                          "        set end of thePaths to POSIX path of (theItem as alias)\n"
                          "    end repeat\n"
                          "    return thePaths\n"
                          "end tell");
}

QString finderTargetScript() {
    return QStringLiteral("tell application \"Finder\"\n"
                          "    if exists Finder window 1 then\n"
                          "        return POSIX path of (target of Finder window 1 as alias)\n"
                          "    else\n"
                          "        return POSIX path of (desktop as alias)\n"
                          "    end if\n"
                          "end tell");
}

}  // namespace pimloft
