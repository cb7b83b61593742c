// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <optional>

class QProcessEnvironment;

namespace pimloft {

struct Dirs;
class AppearanceService;
class AudioService;
class DiagnosisService;
class DialogService;
class DisplayService;
class FileService;
class HotkeyService;
class KeyPoster;
class KeyTap;
class LoginItemService;
class MouseWatch;
class PanelService;
class PasteboardService;
class PreferencesService;
class ScriptingService;
class TemplatesMenuService;
class WindowService;
class WorkspaceService;

/// Everything that the program asks of an operating system: one reference per service. Main thread.
struct Platform {
    AppearanceService &appearance;
    AudioService &audio;
    DiagnosisService &diagnosis;
    DialogService &dialogs;
    DisplayService &displays;
    FileService &files;
    HotkeyService &hotkeys;
    KeyPoster &keys;
    KeyTap &keyTap;
    LoginItemService &loginItem;
    MouseWatch &mouse;
    PanelService &panels;
    PasteboardService &pasteboard;
    PreferencesService &preferences;
    ScriptingService &scripting;
    TemplatesMenuService &templatesMenu;
    WindowService &windows;
    WorkspaceService &workspace;
};

/// Owns the services of the operating system that the program was built for.
class Host {
public:
    virtual ~Host() = default;
    virtual Platform platform() = 0;

    /// Called at most once, when the desktop has gone under the running program, which ends on return: time
    /// to stop what was begun and to save. Nothing can be shown any more. Main thread.
    std::function<void()> onDesktopLost;
};

/// To be called before the QApplication is made: chooses how it talks to the desktop. Answers why it cannot
/// be made at all, in a sentence for the user, or nothing.
std::optional<QString> prepareDesktop();

/// Where this system keeps what belongs to this user's Pimloft. Creates nothing; needs a QCoreApplication.
Dirs hostDirs(const QProcessEnvironment &environment);

/// To be called once, with the QApplication in place. Never fails: what the desktop lacks is refused by the
/// service that needs it.
std::unique_ptr<Host> createHost(const Dirs &dirs);

}  // namespace pimloft
