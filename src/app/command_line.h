// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace pimloft {

/// What the program was asked to do by the words behind its name. A value; any thread.
struct CommandLine {
    enum class Action { run, openSettings, quit, doctor, showVersion, showHelp, refuse } action = Action::run;
    QString unknown;  ///< for `refuse`: the word that means nothing

    /// `words` without the program's own name. Only the first counts.
    static CommandLine parse(const QStringList &words);
    /// What --help prints.
    static QString help();
};

}  // namespace pimloft
