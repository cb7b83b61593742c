// SPDX-License-Identifier: MIT
#include "base/dirs.h"
#include "platform/appearance/mac_appearance.h"
#include "platform/audio/mac_audio.h"
#include "platform/diagnosis/mac_diagnosis.h"
#include "platform/dialogs/qt_dialogs.h"
#include "platform/displays/mac_displays.h"
#include "platform/events/mac_key_poster.h"
#include "platform/events/mac_key_tap.h"
#include "platform/events/mac_mouse_watch.h"
#include "platform/files/mac_files.h"
#include "platform/hotkeys/mac_hotkeys.h"
#include "platform/loginitem/mac_login_item.h"
#include "platform/mac/mac_application.h"
#include "platform/panels/mac_floating_windows.h"
#include "platform/panels/mac_panels.h"
#include "platform/pasteboard/mac_pasteboard.h"
#include "platform/platform.h"
#include "platform/preferences/mac_preferences.h"
#include "platform/scripting/mac_scripting.h"
#include "platform/templates_menu/mac_templates_menu.h"
#include "platform/windows/mac_windows.h"
#include "platform/workspace/mac_workspace.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcessEnvironment>

namespace pimloft {

namespace {

/// Every macOS service. Members are made in the order in which they stand.
class MacHost final : public Host {
public:
    MacHost() { becomeAccessory(); }

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
    const SystemClock clock_;
    const MacFloatingWindows floatingWindows_{MacPanels::nativeView};
    MacPreferences preferences_;
    MacLoginItem loginItem_;
    QtDialogs dialogs_;
    MacAppearance appearance_;
    MacDisplays displays_;
    MacAudio audio_;
    MacWindows windows_;
    MacMouseWatch mouse_;
    MacKeyTap keyTap_{clock_};
    MacDiagnosis diagnosis_{windows_, keyTap_, audio_};
    MacHotkeys hotkeys_;
    MacWorkspace workspace_;
    MacPanels panels_{appearance_};
    MacKeyPoster keys_{[this] { panels_.endTyping(); }};
    MacPasteboard pasteboard_;
    MacScripting scripting_;
    MacFiles files_;
    MacTemplatesMenu templatesMenu_;
};

}  // namespace

std::optional<QString> prepareDesktop() {
    return std::nullopt;
}

Dirs hostDirs(const QProcessEnvironment &environment) {
    const QString home = environment.value(QStringLiteral("HOME"), QDir::homePath());
    const QString support = home + QStringLiteral("/Library/Application Support/Pimloft");
    Dirs dirs;
    dirs.support = support;
    // The user's own, and gone after the login.
    dirs.runtime = environment.value(QStringLiteral("TMPDIR"), support + QStringLiteral("/runtime"));
    dirs.help = QDir(QCoreApplication::applicationDirPath()).absoluteFilePath(QStringLiteral("../Resources"));
    return dirs;
}

std::unique_ptr<Host> createHost(const Dirs &) {
    return std::make_unique<MacHost>();
}

}  // namespace pimloft
