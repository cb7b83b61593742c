// SPDX-License-Identifier: MIT
#include "finderfix/finder_fix_module.h"

#include "app/accessibility_manager.h"
#include "app/hotkey_manager.h"
#include "app/settings_manager.h"
#include "finderfix/custom_templates.h"
#include "finderfix/cut_paste_engine.h"
#include "finderfix/new_file_service.h"
#include "platform/fake_desktop.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

class FinderFix : public testing::Test {
protected:
    FinderFix() { desktop.log(); }

    QTemporaryDir home;
    FakeDesktop desktop;
    SettingsManager settings{desktop.preferences, desktop.loginItem};
    AccessibilityManager accessibility{desktop.windows};
    HotkeyManager hotkeys{desktop.hotkeys};
    CutPasteEngine engine{{.hotkeys = hotkeys,
                           .workspace = desktop.workspace,
                           .scripting = desktop.scripting,
                           .pasteboard = desktop.pasteboard,
                           .files = desktop.files,
                           .dialogs = desktop.dialogs}};
    const NewFileService newFiles{home.path()};
    CustomTemplates templates{newFiles};
    FinderFixModule module{{.settings = settings,
                            .accessibility = accessibility,
                            .engine = engine,
                            .newFiles = newFiles,
                            .templates = templates,
                            .workspace = desktop.workspace}};
};

TEST_F(FinderFix, isThisFeature) {
    EXPECT_EQ(module.id(), QStringLiteral("finderfix"));
    EXPECT_EQ(module.name(), QStringLiteral("FinderFix"));
    EXPECT_EQ(module.icon(), QStringLiteral("folder.badge.gearshape"));
    EXPECT_EQ(module.description(), QStringLiteral("Cmd+X cut-paste for files, New File in Finder"));
    EXPECT_TRUE(module.requiresAccessibility());
    EXPECT_TRUE(module.isEnabled());
}

TEST_F(FinderFix, startsTheEngineWithThePermissionOnly) {
    desktop.windows.trusted = false;
    accessibility.refresh();
    module.activate();
    EXPECT_FALSE(engine.isActive());
    desktop.windows.trusted = true;
    accessibility.refresh();
    module.activate();
    EXPECT_TRUE(engine.isActive());
    module.deactivate();
    EXPECT_FALSE(engine.isActive());
}

TEST_F(FinderFix, theSwitchIsStoredBeforeTheEngineFollowsIt) {
    module.activate();
    desktop.log();
    module.setEnabled(false);
    EXPECT_EQ(desktop.log(), "set pimloft.finderfix.enabled = false\n");
    EXPECT_FALSE(engine.isActive());
    module.setEnabled(true);
    EXPECT_EQ(desktop.log(), "set pimloft.finderfix.enabled = true\n"
                             "grant key 7 with modifiers 0x100 as 3\n"
                             "grant key 9 with modifiers 0x100 as 4\n");
}

TEST_F(FinderFix, itsPageShowsTheTemplatesAsTheyAreWhenItIsOpened) {
    QFile file(newFiles.templatesDirectory() + QStringLiteral("/Letter.odt"));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    const Page page = module.settingsView().value();
    EXPECT_EQ(page.source, QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/FinderFix/FinderFixSettings.qml")));
    const auto *model = page.properties.value(QStringLiteral("settings")).value<QObject *>();
    EXPECT_EQ(model->property("customTemplates").toStringList(), QStringList{QStringLiteral("Letter.odt")});
}

TEST_F(FinderFix, theButtonsOpenTheFolderAndTheSettings) {
    FinderFixSettings page(newFiles, templates, desktop.workspace);
    page.openTemplatesFolder();
    EXPECT_EQ(desktop.log(), "reveal " + home.path().toStdString() + "/Templates\n");
    page.openExtensionSettings();
    EXPECT_EQ(desktop.log(), "open x-apple.systempreferences:com.apple.preferences.extensions?Finder\n");
}

}  // namespace
}  // namespace pimloft
