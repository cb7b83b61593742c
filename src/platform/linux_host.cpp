// SPDX-License-Identifier: MIT
#include "base/dirs.h"
#include "platform/appearance/linux_appearance.h"
#include "platform/audio/pulse_audio.h"
#include "platform/diagnosis/x11_diagnosis.h"
#include "platform/dialogs/qt_dialogs.h"
#include "platform/displays/x11_displays.h"
#include "platform/events/x11_key_poster.h"
#include "platform/events/x11_key_tap.h"
#include "platform/events/x11_mouse_watch.h"
#include "platform/filemanager/file_managers.h"
#include "platform/files/linux_files.h"
#include "platform/hotkeys/x11_hotkeys.h"
#include "platform/loginitem/xdg_login_item.h"
#include "platform/panels/x11_panels.h"
#include "platform/pasteboard/x11_pasteboard.h"
#include "platform/platform.h"
#include "platform/preferences/json_preferences.h"
#include "platform/scripting/finder_scripts.h"
#include "platform/scripting/linux_scripting.h"
#include "platform/scripting/player_scripts.h"
#include "platform/scripting/session_bus.h"
#include "platform/templates_menu/xdg_templates_menu.h"
#include "platform/windows/x11_windows.h"
#include "platform/workspace/x11_workspace.h"
#include "platform/x11/qt_connection.h"
#include "platform/x11/x11_active_window.h"
#include "platform/x11/x11_compositor.h"
#include "platform/x11/x11_end.h"
#include "platform/x11/x11_keyboard.h"
#include "platform/x11/x11_raw_input.h"
#include "platform/x11/x11_session.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QScreen>
#include <QStandardPaths>

namespace pimloft {

namespace {

/// Native pixels per point: one factor for the whole login, the one by which Qt scales the primary screen.
double scaleOfLogin() {
    const QScreen *primary = QGuiApplication::primaryScreen();
    return primary ? primary->devicePixelRatio() : 1;
}

QByteArray desktopFolder() {
    return QFile::encodeName(QStandardPaths::writableLocation(QStandardPaths::DesktopLocation));
}

/// Every Linux service on one connection to the X server. Members are made in the order in which they stand.
class LinuxHost final : public Host {
public:
    explicit LinuxHost(const Dirs &dirs)
        : preferences_(dirs.preferences), loginItem_(dirs.autostart, QCoreApplication::applicationFilePath()),
          displays_(session_, scaleOfLogin()), appearance_(session_, bus_.connection()),
          keyTap_(keyboard_, dirs.keyGuard),
          diagnosis_(session_, keyTap_, audio_, sessionType_, bus_.connection()),
          windows_(session_, displays_, sessionType_), mouse_(input_, displays_),
          hotkeys_(session_, keyboard_, input_),
          workspace_(session_, activeWindow_, dirs.help, bus_.connection()),
          panels_({.displays = displays_,
                   .keyboard = keyboard_,
                   .hotkeys = hotkeys_,
                   .input = input_,
                   .activeWindow = activeWindow_,
                   .compositor = compositor_,
                   .appearance = appearance_}),
          keys_(
              keyboard_, [this] { panels_.endTyping(); }, [this] { return chordInFront(); }),
          pasteboard_([this](ProcessId process) { return workspace_.bundleId(process); }),
          scripting_(scriptHandlers(), [this] { return scriptHandlersOnANewBus(); }),
          templatesMenu_(dirs.support), end_(session_, [this] { saveAtTheLastMoment(); }) {}

    Platform platform() override {
        return {.appearance = appearance_,
                .audio = audio_,
                .diagnosis = diagnosis_,
                .dialogs = dialogs_,
                .displays = displays_,
                .files = files_,
                .hotkeys = hotkeys_,
                .keys = keys_,
                .keyTap = keyTap_,
                .loginItem = loginItem_,
                .mouse = mouse_,
                .panels = panels_,
                .pasteboard = pasteboard_,
                .preferences = preferences_,
                .scripting = scripting_,
                .templatesMenu = templatesMenu_,
                .windows = windows_,
                .workspace = workspace_};
    }

private:
    void saveAtTheLastMoment() {
        if (onDesktopLost)
            onDesktopLost();
        preferences_.flush();
    }

    /// What is typed next may paste, and programs of the oldest kind paste the primary selection.
    ShortcutChord chordInFront() {
        const ShortcutChord chord = workspace_.frontmostChord();
        if (chord == ShortcutChord::shiftInsert)
            pasteboard_.offerAsPrimary();
        return chord;
    }

    LinuxScripting::Handlers scriptHandlers() {
        LinuxScripting::Handlers handlers;
        handlers.push_back(
            std::make_unique<PlayerScripts>(bus_.connection(), [this](const MprisPlayer &player) {
                return workspace_.identifyPlayer(player);
            }));
        handlers.push_back(
            std::make_unique<FinderScripts>(std::make_unique<FileManagers>(FileManagers::Surroundings{
                .session = session_,
                .pasteboard = pasteboard_,
                .keys = keys_,
                .bus = bus_.connection(),
                .isFileManager = [this](xcb_window_t window) { return isFinder(window); },
                .home = QFile::encodeName(QDir::homePath()),
                .desktop = desktopFolder})));
        return handlers;
    }

    /// None unless the session's bus has gone and is there again.
    LinuxScripting::Handlers scriptHandlersOnANewBus() {
        return bus_.renew() ? scriptHandlers() : LinuxScripting::Handlers();
    }

    bool isFinder(xcb_window_t window) {
        return workspace_.bundleIdOf(window) == QLatin1String("com.apple.finder");
    }

    const QString sessionType_ = qEnvironmentVariable("XDG_SESSION_TYPE");
    SessionBus bus_{QDBusConnection::sessionBus()};
    X11Session session_;
    X11RawInput input_{session_};
    X11Keyboard keyboard_{session_, input_};
    X11ActiveWindow activeWindow_{session_};
    X11Compositor compositor_{session_};

    JsonPreferences preferences_;
    XdgLoginItem loginItem_;
    QtDialogs dialogs_;
    X11Displays displays_;
    LinuxAppearance appearance_;
    X11KeyTap keyTap_;
    PulseAudio audio_;
    X11Diagnosis diagnosis_;
    X11Windows windows_;
    X11MouseWatch mouse_;
    X11Hotkeys hotkeys_;
    X11Workspace workspace_;
    X11Panels panels_;
    X11KeyPoster keys_;
    X11Pasteboard pasteboard_;
    LinuxScripting scripting_;
    const FileCalls fileCalls_{};
    LinuxFiles files_{fileCalls_};
    XdgTemplatesMenu templatesMenu_;
    X11End end_;
};

}  // namespace

std::optional<QString> prepareDesktop() {
    chooseQtConnection();
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    const bool connected = !xcb_connection_has_error(connection);
    xcb_disconnect(connection);
    if (connected)
        return std::nullopt;
    const QString display = qEnvironmentVariable("DISPLAY");
    return display.isEmpty()
               ? QStringLiteral("pimloft: there is no X display; start it within a desktop session")
               : QStringLiteral("pimloft: the X display %1 does not answer").arg(display);
}

Dirs hostDirs(const QProcessEnvironment &environment) {
    return Dirs::fromEnvironment(environment);
}

std::unique_ptr<Host> createHost(const Dirs &dirs) {
    return std::make_unique<LinuxHost>(dirs);
}

}  // namespace pimloft
