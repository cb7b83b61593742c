// SPDX-License-Identifier: MIT
#include "app/accessibility_manager.h"
#include "app/app_delegate.h"
#include "app/app_state.h"
#include "app/bundle_info.h"
#include "app/command_line.h"
#include "app/doctor_report.h"
#include "app/hotkey_manager.h"
#include "app/process.h"
#include "app/settings_manager.h"
#include "base/console.h"
#include "finderfix/custom_templates.h"
#include "finderfix/finder_fix_module.h"
#include "finderfix/new_file_menu.h"
#include "i18n/translations.h"
#include "platform/instance/instance.h"
#include "platform/memory/memory.h"
#include "platform/signals/quit_signals.h"
#include "ui/kit/theme.h"
#include "ui/pimloft_app.h"
#include "ui/quick_view_host.h"

#include <QApplication>
#include <QLoggingCategory>
#include <QProcessEnvironment>
#include <QTimer>

#include <chrono>
#include <cstdio>

namespace pimloft {

namespace {

int complain(const QString &line) {
    std::fprintf(stderr, "%s\n", qPrintable(line));
    return 2;
}

/// The words of the command line that mean the same to a running instance as they do here.
InstanceCommand instanceCommand(CommandLine::Action action) {
    switch (action) {
    case CommandLine::Action::openSettings:
        return InstanceCommand::openSettings;
    case CommandLine::Action::quit:
        return InstanceCommand::quit;
    case CommandLine::Action::doctor:
        return InstanceCommand::doctor;
    default:
        return InstanceCommand::openPopover;
    }
}

QString doctorText() {
    return doctorReport(doctorFindings(Process::current().platform().diagnosis, HotkeyManager::shared()));
}

/// The running program, from start-up to quit.
int run(QApplication &application, Instance &instance, CommandLine::Action action) {
    const SystemClock clock;
    const Dirs dirs = hostDirs(QProcessEnvironment::systemEnvironment());
    const std::unique_ptr<Host> host = createHost(dirs);
    Process process(host->platform(), clock, dirs);

    // Before anything is started that has to be stopped in order.
    const QuitSignals quitSignals([] { QApplication::quit(); });

    QuickViewHost views(process.platform().displays, Theme::shared());
    process.setViews(&views);
    AppDelegate delegate({.settings = SettingsManager::shared(),
                          .accessibility = AccessibilityManager::shared(),
                          .workspace = process.platform().workspace,
                          .views = views},
                         &AppState::shared);
    delegate.applicationDidFinishLaunching();
    const NewFileMenu newFileMenu(*AppState::shared().finderFix(), CustomTemplates::shared(),
                                  process.platform().templatesMenu);
    PimloftApp app(process, AppState::shared(), views);
    instance.onCommand = [&](InstanceCommand command) -> QString {
        switch (command) {
        case InstanceCommand::openPopover:
            app.openPopover();
            return {};
        case InstanceCommand::openSettings:
            app.openSettings();
            return {};
        case InstanceCommand::quit:
            QApplication::quit();
            return {};
        case InstanceCommand::doctor:
            return doctorText();
        }
        return {};
    };
    if (action == CommandLine::Action::openSettings)
        app.openSettings();
    // What starting took is not needed again, and most days little else comes.
    QTimer::singleShot(std::chrono::seconds(1), &application, [] { returnFreeMemory(); });

    // With no time for more: the windows' own server may be gone.
    host->onDesktopLost = [&delegate] { delegate.applicationWillTerminate(); };
    const int result = application.exec();
    host->onDesktopLost = nullptr;
    instance.onCommand = nullptr;
    delegate.applicationWillTerminate();
    process.setViews(nullptr);
    return result;
}

/// What this desktop would grant, while no instance is running that could tell.
int diagnose() {
    const SystemClock clock;
    const Dirs dirs = hostDirs(QProcessEnvironment::systemEnvironment());
    const std::unique_ptr<Host> host = createHost(dirs);
    Process process(host->platform(), clock, dirs);
    AppState::shared().activateEnabledModules();
    printLine(doctorText());
    AppState::shared().deactivateModules();
    return 0;
}

int start(int argc, char **argv, CommandLine::Action action) {
    forbidCoreDumps();
    if (const auto reason = prepareDesktop())
        return complain(*reason);
    QApplication application(argc, argv);
    const Translations translations(QLocale::system());
    QGuiApplication::setLayoutDirection(Translations::direction(QLocale::system()));
    // What users copy may be broken; that is no failure of ours to report.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.gui.imageio.warning=false\n"
                                                    "qt.imageformats.tiff.warning=false"));
    QApplication::setApplicationName(QStringLiteral("pimloft"));
    QApplication::setApplicationVersion(appVersion());
    QApplication::setDesktopFileName(QStringLiteral("app.pimloft.Pimloft"));

    const QString runtime = hostDirs(QProcessEnvironment::systemEnvironment()).runtime;
    const QString login = qEnvironmentVariable("DISPLAY");
    const auto ask = [&] {
        const auto answer = askInstance(runtime, login, instanceCommand(action));
        if (answer && !answer->isEmpty())
            printLine(*answer);
        return answer.has_value();
    };
    // Neither of these starts a program that would have to be the only one.
    if (action == CommandLine::Action::quit)
        return ask() ? 0 : complain(QStringLiteral("Pimloft is not running."));
    if (action == CommandLine::Action::doctor)
        return ask() ? 0 : diagnose();

    std::unique_ptr<Instance> instance = claimInstance(runtime, login);
    if (!instance) {
        if (ask())
            return 0;
        // It may have been about to end.
        instance = claimInstance(runtime, login);
    }
    return instance ? run(application, *instance, action)
                    : complain(QStringLiteral("Pimloft is running but does not answer."));
}

}  // namespace

}  // namespace pimloft

int main(int argc, char **argv) {
    using namespace pimloft;
    QStringList words;
    for (int index = 1; index < argc; ++index)
        words << QString::fromLocal8Bit(argv[index]);
    const CommandLine commandLine = CommandLine::parse(words);
    switch (commandLine.action) {
    case CommandLine::Action::showVersion:
        printLine(QStringLiteral("Pimloft %1 (%2)").arg(appVersion(), buildNumber()));
        return 0;
    case CommandLine::Action::showHelp:
        printLine(CommandLine::help());
        return 0;
    case CommandLine::Action::refuse:
        return complain(
            QStringLiteral("pimloft: \"%1\" means nothing here; try --help").arg(commandLine.unknown));
    default:
        return start(argc, argv, commandLine.action);
    }
}
