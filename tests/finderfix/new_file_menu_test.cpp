// SPDX-License-Identifier: MIT
#include "finderfix/new_file_menu.h"

#include "app/pimloft_module.h"
#include "app/settings_manager.h"
#include "finderfix/custom_templates.h"
#include "finderfix/new_file_service.h"
#include "platform/fake_desktop.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

/// A feature that lacks its permission and is stopped and started as others are.
class Feature final : public PimloftModule {
public:
    explicit Feature(SettingsManager &settings)
        : PimloftModule({QStringLiteral("finderfix"), {}, {}, {}, true}, settings) {}
    void activate() override {}
    void deactivate() override {}
    std::optional<Page> settingsView() override { return std::nullopt; }
};

class NewFileMenuTest : public testing::Test {
protected:
    NewFileMenuTest() { desktop.log(); }

    const std::string builtIn = "offer new files: Text File.txt, Markdown File.md, HTML File.html, Python "
                                "Script.py, Shell Script.sh";
    QTemporaryDir home;
    FakeDesktop desktop;
    SettingsManager settings{desktop.preferences, desktop.loginItem};
    const NewFileService service{home.path()};
    CustomTemplates templates{service};
};

TEST_F(NewFileMenuTest, offersTheKindsWhileTheFeatureIsOn) {
    Feature feature(settings);
    const NewFileMenu menu(feature, templates, desktop.templatesMenu);
    EXPECT_EQ(desktop.log(), builtIn + '\n');
}

TEST_F(NewFileMenuTest, takesThemAwayWhereTheFeatureWasSwitchedOffBefore) {
    desktop.preferences.stored[QStringLiteral("pimloft.finderfix.enabled")] = false;
    Feature feature(settings);
    const NewFileMenu menu(feature, templates, desktop.templatesMenu);
    EXPECT_EQ(desktop.log(), "withdraw new files\n");
}

TEST_F(NewFileMenuTest, followsTheSwitchAndNotTheFeaturesRunning) {
    Feature feature(settings);
    const NewFileMenu menu(feature, templates, desktop.templatesMenu);
    feature.deactivate();
    EXPECT_EQ(desktop.log(), builtIn + '\n') << "as at quit";
    feature.setEnabled(false);
    EXPECT_EQ(desktop.log(), "set pimloft.finderfix.enabled = false\nwithdraw new files\n");
    feature.setEnabled(true);
    EXPECT_EQ(desktop.log(), "set pimloft.finderfix.enabled = true\n" + builtIn + '\n');
}

TEST_F(NewFileMenuTest, leavesEverythingAtTheEnd) {
    Feature feature(settings);
    { const NewFileMenu menu(feature, templates, desktop.templatesMenu); }
    EXPECT_EQ(desktop.log(), builtIn + '\n');
}

TEST_F(NewFileMenuTest, offersATemplateThatIsNew) {
    Feature feature(settings);
    const NewFileMenu menu(feature, templates, desktop.templatesMenu);
    desktop.log();
    QFile file(service.templatesDirectory() + QStringLiteral("/Letter.odt"));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    std::string log;
    ASSERT_TRUE(QTest::qWaitFor([&] { return !(log += desktop.log()).empty(); }));
    EXPECT_EQ(log, builtIn + ", Letter.odt\n");
}

TEST_F(NewFileMenuTest, aNewTemplateDoesNotMatterWhileTheFeatureIsOff) {
    Feature feature(settings);
    const NewFileMenu menu(feature, templates, desktop.templatesMenu);
    feature.setEnabled(false);
    desktop.log();
    QFile file(service.templatesDirectory() + QStringLiteral("/Letter.odt"));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !templates.list().empty(); }));
    EXPECT_EQ(desktop.log(), "");
}

}  // namespace
}  // namespace pimloft
