// SPDX-License-Identifier: MIT
#pragma once

#include "platform/appearance/fake_appearance.h"
#include "platform/audio/fake_audio.h"
#include "platform/diagnosis/fake_diagnosis.h"
#include "platform/dialogs/fake_dialogs.h"
#include "platform/displays/fake_displays.h"
#include "platform/events/fake_events.h"
#include "platform/files/fake_files.h"
#include "platform/hotkeys/fake_hotkeys.h"
#include "platform/loginitem/fake_login_item.h"
#include "platform/panels/fake_panels.h"
#include "platform/pasteboard/fake_pasteboard.h"
#include "platform/platform.h"
#include "platform/preferences/fake_preferences.h"
#include "platform/scripting/fake_scripting.h"
#include "platform/templates_menu/fake_templates_menu.h"
#include "platform/windows/fake_windows.h"
#include "platform/workspace/fake_workspace.h"

namespace pimloft {

/// A whole desktop for tests: every service strict and recording into one log.
class FakeDesktop {
    FakeLog log_;

public:
    FakeAppearance appearance;
    FakeAudio audio{log_};
    FakeDiagnosis diagnosis;
    FakeDialogs dialogs{log_};
    FakeDisplays displays;
    FakeFiles files;
    FakeHotkeys hotkeys{log_};
    FakeKeyPoster keys{log_};
    FakeKeyTap keyTap{log_};
    FakeLoginItem loginItem{log_};
    FakeMouseWatch mouse{log_};
    FakePanels panels{log_};
    FakePasteboard pasteboard{log_};
    FakePreferences preferences{log_};
    FakeScripting scripting{log_};
    FakeTemplatesMenu templatesMenu{log_};
    FakeWindows windows{log_};
    FakeWorkspace workspace{log_};

    Platform platform() {
        return {.appearance = appearance,
                .audio = audio,
                .diagnosis = diagnosis,
                .dialogs = dialogs,
                .displays = displays,
                .files = files,
                .hotkeys = hotkeys,
                .keys = keys,
                .keyTap = keyTap,
                .loginItem = loginItem,
                .mouse = mouse,
                .panels = panels,
                .pasteboard = pasteboard,
                .preferences = preferences,
                .scripting = scripting,
                .templatesMenu = templatesMenu,
                .windows = windows,
                .workspace = workspace};
    }

    /// What was asked of the desktop since the last call, one line each.
    std::string log() { return log_.take(); }
};

}  // namespace pimloft
