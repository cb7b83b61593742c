// SPDX-License-Identifier: MIT
#include "page_session.h"

#include "keymapper/key_mapping_document.h"
#include "keymapper/keyboard_session.h"
#include "ui/page_view.h"

#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

using test::type;

class KeyMapperPage : public testing::Test {
protected:
    void show() {
        view = std::make_unique<PageView>(session.views().engine(), *keyboard.module->settingsView());
        view->resize(560, 760);
        view->show();
        view->requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    }
    std::string spoken() const { return test::spoken(view.get()).join(QLatin1Char('\n')).toStdString(); }
    bool says(const char *text) const { return spoken().find(text) != std::string::npos; }
    QQuickItem *named(const char *name) const {
        QQuickItem *item = test::named(view.get(), QString::fromUtf8(name));
        EXPECT_TRUE(item) << name;
        return item;
    }
    bool isOn(KeyMappingPreset preset) const { return keyboard.store->isOn(preset); }
    bool hasSheet() const { return says("Confirm Key Remapping"); }
    /// The sheet fades.
    bool sheetComesAndGoesTo(bool shown) const {
        return QTest::qWaitFor([&] { return hasSheet() == shown; });
    }
    void enableWindowsMode() {
        test::click(named("Windows Mode"));
        ASSERT_TRUE(sheetComesAndGoesTo(true));
    }
    void import(const KeyMappings &rules) {
        ASSERT_TRUE(keyboard.store->importMappings(encode(ExportedMappings{{}, rules})));
        // The list makes its rows with the next frame.
        QCoreApplication::processEvents();
    }

    test::PageSession session;
    test::KeyboardSession keyboard;
    std::unique_ptr<PageView> view;
};

TEST_F(KeyMapperPage, saysThis) {
    show();
    EXPECT_EQ(
        spoken(),
        "group: Presets\n"
        "heading: Presets\n"
        "switch: Windows Mode [off]\n"
        "switch: Home/End Fix [off]\n"
        "switch: Delete Key [off]\n"
        "switch: F-Keys [off]\n"
        "group: Per-App Exclusions\n"
        "heading: Per-App Exclusions\n"
        "text: Terminal apps (Terminal, iTerm2, Kitty, Ghostty) are automatically excluded from Windows "
        "Mode to preserve Unix keybindings.\n"
        "group: Safety\n"
        "heading: Safety\n"
        "text: Panic Hotkey: Triple-press Right Shift to instantly disable all remapping\n"
        "text: 10-Second Confirmation: New mappings auto-revert if not confirmed within 10 seconds\n"
        "group: Import / Export\n"
        "heading: Import / Export\n"
        "button: Export Mappings\n"
        "button: Import Mappings");
}

TEST_F(KeyMapperPage, showsTheseTexts) {
    import({{.fromKeyCode = Key::home, .toKeyCode = Key::leftArrow }});
    show();
    EXPECT_EQ(
        test::texts(view->rootObject()).join(QLatin1Char('\n')).toStdString(),
        "Presets\n"
        "Windows Mode\nSwap Ctrl and Cmd for all shortcuts (Ctrl+C copies, etc.)\n"
        "Home/End Fix\nHome/End go to beginning/end of line, not document\n"
        "Delete Key\nFn+Delete works as forward-delete consistently\n"
        "F-Keys\nF1-F12 as function keys by default (not media keys)\n"
        "Custom Mappings\n"
        "Key 115\nKey 123\n"
        "Per-App Exclusions\n"
        "Terminal apps (Terminal, iTerm2, Kitty, Ghostty) are automatically excluded from Windows Mode to "
        "preserve Unix keybindings.\n"
        "Safety\n"
        "Panic Hotkey\nTriple-press Right Shift to instantly disable all remapping\n"
        "10-Second Confirmation\nNew mappings auto-revert if not confirmed within 10 seconds\n"
        "Import / Export\n"
        "Export Mappings\n"
        "Import Mappings");
}

TEST_F(KeyMapperPage, aSwitchTurnsAPresetOnAndAsks) {
    show();
    enableWindowsMode();
    EXPECT_TRUE(isOn(KeyMappingPreset::windowsMode));
    EXPECT_TRUE(says("text: Enabling \"Windows Mode\"")) << spoken();
    EXPECT_TRUE(says("text: Press \"Keep\" to confirm, or wait 10 seconds to auto-revert.")) << spoken();
    EXPECT_TRUE(says("button: Revert\nbutton: Keep")) << spoken();
}

TEST_F(KeyMapperPage, theSheetCountsDownAndThenTheSwitchIsOffAgain) {
    show();
    enableWindowsMode();
    keyboard.timer->pass(3);
    EXPECT_TRUE(says("wait 7 seconds")) << spoken();
    keyboard.timer->pass(7);
    EXPECT_TRUE(sheetComesAndGoesTo(false));
    EXPECT_TRUE(says("switch: Windows Mode [off]")) << spoken();
}

TEST_F(KeyMapperPage, returnKeeps) {
    show();
    enableWindowsMode();
    type(view.get(), Qt::Key_Return);
    EXPECT_TRUE(sheetComesAndGoesTo(false));
    EXPECT_TRUE(says("switch: Windows Mode [on]")) << spoken();
    EXPECT_FALSE(keyboard.timer->isRunning);
}

TEST_F(KeyMapperPage, escapeRevertsAndLeavesTheWindowOpen) {
    show();
    enableWindowsMode();
    type(view.get(), Qt::Key_Escape);
    EXPECT_TRUE(sheetComesAndGoesTo(false));
    EXPECT_FALSE(isOn(KeyMappingPreset::windowsMode));
    EXPECT_TRUE(view->isVisible());
}

TEST_F(KeyMapperPage, theButtonsDoWhatTheySay) {
    show();
    enableWindowsMode();
    test::click(named("Revert"));
    EXPECT_TRUE(sheetComesAndGoesTo(false));
    EXPECT_FALSE(isOn(KeyMappingPreset::windowsMode));
    enableWindowsMode();
    test::click(named("Keep"));
    EXPECT_TRUE(sheetComesAndGoesTo(false));
    EXPECT_TRUE(isOn(KeyMappingPreset::windowsMode));
}

TEST_F(KeyMapperPage, theTabKeyStaysInTheSheetAndReturnPressesWhatHasIt) {
    show();
    enableWindowsMode();
    type(view.get(), Qt::Key_Tab);
    type(view.get(), Qt::Key_Return);
    EXPECT_TRUE(sheetComesAndGoesTo(false));
    EXPECT_FALSE(isOn(KeyMappingPreset::windowsMode)) << "Revert had the keyboard";
}

TEST_F(KeyMapperPage, nothingBeneathTheSheetTakesAClick) {
    show();
    QQuickItem *below = named("F-Keys");
    enableWindowsMode();
    test::click(below);
    EXPECT_FALSE(isOn(KeyMappingPreset::fKeys));
    EXPECT_TRUE(hasSheet());
}

TEST_F(KeyMapperPage, theSheetIsThereAgainInANewWindow) {
    show();
    enableWindowsMode();
    view.reset();
    keyboard.timer->pass(4);
    show();
    ASSERT_TRUE(sheetComesAndGoesTo(true));
    EXPECT_TRUE(says("wait 6 seconds")) << spoken();
    type(view.get(), Qt::Key_Return);
    EXPECT_TRUE(sheetComesAndGoesTo(false));
    EXPECT_TRUE(isOn(KeyMappingPreset::windowsMode));
}

TEST_F(KeyMapperPage, switchingOffAsksNothing) {
    keyboard.store->setPreset(KeyMappingPreset::deleteKey, true);
    show();
    test::click(named("Delete Key"));
    EXPECT_FALSE(isOn(KeyMappingPreset::deleteKey));
    EXPECT_FALSE(hasSheet());
}

TEST_F(KeyMapperPage, theSpaceBarSwitches) {
    show();
    type(view.get(), Qt::Key_Tab);
    type(view.get(), Qt::Key_Space);
    EXPECT_TRUE(isOn(KeyMappingPreset::windowsMode));
    ASSERT_TRUE(sheetComesAndGoesTo(true));
    type(view.get(), Qt::Key_Return);
    ASSERT_TRUE(sheetComesAndGoesTo(false));
    type(view.get(), Qt::Key_Space);
    EXPECT_FALSE(isOn(KeyMappingPreset::windowsMode)) << "the keyboard is back at the switch";
}

TEST_F(KeyMapperPage, theMinusRemovesARuleAndTheLastOneTheSection) {
    import({{.fromKeyCode = Key::home, .toKeyCode = Key::leftArrow},
            {.fromKeyCode = Key::end,
             .toKeyCode = Key::rightArrow }});
    show();
    EXPECT_TRUE(says("list item: Key 115 → Key 123")) << spoken();
    EXPECT_TRUE(says("list item: Key 119 → Key 124")) << spoken();
    test::click(named("Remove the mapping of key 115"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !says("Key 115"); })) << spoken();
    EXPECT_EQ(keyboard.store->customMappings().size(), 1u);
    test::click(named("Remove the mapping of key 119"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !says("Custom Mappings"); })) << spoken();
}

TEST_F(KeyMapperPage, anImportShowsItsRules) {
    show();
    EXPECT_FALSE(says("Custom Mappings"));
    import({{.fromKeyCode = KeyCode{65535}, .toKeyCode = KeyCode { 0 } }});
    EXPECT_TRUE(QTest::qWaitFor([&] { return says("list item: Key 65535 → Key 0"); })) << spoken();
}

TEST_F(KeyMapperPage, thousandsOfRulesAreAFewRowsOfWork) {
    import(KeyMappings(10'000, KeyMapping{.fromKeyCode = Key::home}));
    show();
    EXPECT_LT(view->rootObject()->findChildren<QQuickItem *>().size(), 1000);
    EXPECT_LT(view->rootObject()->property("contentHeight").toDouble(), 2000);
}

TEST_F(KeyMapperPage, exportsAndImportsOneAtATime) {
    show();
    test::click(named("Export Mappings"));
    EXPECT_EQ(keyboard.desktop.log(), "ask where to save Pimloft-KeyMappings.json (application/json)\n");
    EXPECT_FALSE(named("Import Mappings")->isEnabled());
    keyboard.desktop.dialogs.answerPath(std::nullopt);
    test::click(named("Import Mappings"));
    EXPECT_EQ(keyboard.desktop.log(), "ask what to open (application/json)\n");
    keyboard.desktop.dialogs.answerPath(std::nullopt);
    EXPECT_TRUE(named("Export Mappings")->isEnabled());
}

TEST_F(KeyMapperPage, cutsNothingShort) {
    import({{.fromKeyCode = KeyCode{65535}, .toKeyCode = KeyCode { 65535 } }});
    show();
    enableWindowsMode();
    for (const QQuickItem *item : view->contentItem()->findChildren<QQuickItem *>())
        EXPECT_FALSE(item->property("truncated").toBool()) << item->property("text").toString().toStdString();
}

}  // namespace
}  // namespace pimloft
