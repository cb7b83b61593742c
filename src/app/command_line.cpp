// SPDX-License-Identifier: MIT
#include "app/command_line.h"

#include <array>

namespace pimloft {

namespace {

struct Option {
    const char *name;
    CommandLine::Action action;
    const char *help;
};

constexpr std::array options{
    Option{"--settings", CommandLine::Action::openSettings, "open the settings window"},
    Option{"--quit", CommandLine::Action::quit, "end the running Pimloft"},
    Option{"--doctor", CommandLine::Action::doctor, "say what this desktop grants and refuses"},
    Option{"--version", CommandLine::Action::showVersion, "print the version"},
    Option{"--help", CommandLine::Action::showHelp, "print this text"},
};

}  // namespace

CommandLine CommandLine::parse(const QStringList &words) {
    if (words.isEmpty())
        return {};
    for (const Option &option : options)
        if (words.first() == QLatin1String(option.name))
            return {.action = option.action, .unknown = {}};
    return {.action = Action::refuse, .unknown = words.first()};
}

QString CommandLine::help() {
    QString text = QStringLiteral("Usage: pimloft [option]\n\n"
                                  "Without an option Pimloft starts; started again, it opens its panel.\n\n");
    for (const Option &option : options)
        text +=
            QStringLiteral("  %1  %2\n").arg(QLatin1String(option.name), -10).arg(QLatin1String(option.help));
    return text.trimmed();
}

}  // namespace pimloft
