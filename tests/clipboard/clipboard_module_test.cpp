// SPDX-License-Identifier: MIT
#include "clipboard/clipboard_module.h"

#include "app/hotkey_manager.h"
#include "app/process.h"
#include "app/settings_manager.h"
#include "clipboard/clipboard_engine.h"
#include "clipboard/clipboard_store.h"
#include "entries.h"
#include "platform/fake_desktop.h"
#include "support/plain_views.h"
#include "support/qt_printers.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

constexpr CarbonModifiers popup = CarbonModifiers(0x300);
constexpr CarbonModifiers plainText = CarbonModifiers(0x1300);

class ClipboardModuleTest : public testing::Test {
protected:
    ClipboardModuleTest() {
        desktop.displays.add(DisplayId(1), {0, 0, 1440, 900});
        dirs.support = folder.path();
        process.emplace(desktop.platform(), clock, dirs);
        module = ClipboardModule::create();
        desktop.log();
    }
    ClipboardEngine &engine() { return ClipboardEngine::shared(); }
    void settle() {
        QCoreApplication::processEvents();
        while (desktop.pasteboard.answer()) {
        }
        QCoreApplication::processEvents();
    }
    void press(CarbonModifiers modifiers) {
        desktop.hotkeys.press(Key::v, modifiers);
        settle();
    }
    std::string recorded() {
        engine().checkForChanges();
        settle();
        return test::summary(ClipboardStore::shared().items());
    }

    FakeDesktop desktop;
    SystemClock clock;
    QTemporaryDir folder;
    Dirs dirs;
    std::optional<Process> process;
    std::unique_ptr<ClipboardModule> module;
};

TEST_F(ClipboardModuleTest, hasItsConstants) {
    EXPECT_EQ(module->id(), QStringLiteral("clipboardplus"));
    EXPECT_EQ(module->name(), QStringLiteral("ClipboardPlus"));
    EXPECT_EQ(module->icon(), QStringLiteral("doc.on.clipboard"));
    EXPECT_EQ(module->description(), QStringLiteral("Clipboard history with Cmd+Shift+V popup"));
    EXPECT_FALSE(module->requiresAccessibility());
}

TEST_F(ClipboardModuleTest, startsNothingByBeingMade) {
    EXPECT_FALSE(engine().isActive());
    EXPECT_EQ(module->clipboardPopupHotkeyID(), 0u);
    EXPECT_EQ(module->plainTextPasteHotkeyID(), 0u);
}

TEST_F(ClipboardModuleTest, recordsAndTakesBothShortcuts) {
    module->activate();
    EXPECT_TRUE(engine().isActive());
    EXPECT_EQ(module->clipboardPopupHotkeyID(), 1u);
    EXPECT_EQ(module->plainTextPasteHotkeyID(), 2u);
}

TEST_F(ClipboardModuleTest, activatesOnce) {
    module->activate();
    desktop.log();
    module->activate();
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(ClipboardModuleTest, disablingStopsRecordingAndTheShortcuts) {
    module->activate();
    module->setEnabled(false);
    EXPECT_FALSE(engine().isActive());
    desktop.pasteboard.copy({{PasteType::plainText, "x"}});
    desktop.log();
    press(plainText);
    press(popup);
    EXPECT_EQ(desktop.log(), "");
    EXPECT_FALSE(module->popupController().isOpen());
}

TEST_F(ClipboardModuleTest, theSameShortcutOpensThePopupAndClosesIt) {
    test::PlainViews views;
    process->setViews(&views);
    module->activate();
    press(popup);
    EXPECT_TRUE(module->popupController().isOpen());
    press(popup);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !module->popupController().isOpen(); }));
    process->setViews(nullptr);
}

TEST_F(ClipboardModuleTest, enablingAgainTakesTheShortcutsUnderNewIds) {
    module->activate();
    module->setEnabled(false);
    module->setEnabled(true);
    EXPECT_EQ(module->clipboardPopupHotkeyID(), 3u);
    EXPECT_EQ(module->plainTextPasteHotkeyID(), 4u);
    EXPECT_TRUE(engine().isActive());
}

TEST_F(ClipboardModuleTest, keepsTheHistoryWhenItIsDisabled) {
    module->activate();
    ClipboardStore::shared().add(test::text(QStringLiteral("kept")));
    module->setEnabled(false);
    EXPECT_EQ(test::summary(ClipboardStore::shared().items()), "kept");
}

TEST_F(ClipboardModuleTest, pastesThePlainFormOfRichText) {
    module->activate();
    desktop.pasteboard.copy(
        {{PasteType::rtf, "{\\rtf1 x}"}, {PasteType::html, "<b>x</b>"}, {PasteType::plainText, "x"}});
    desktop.log();
    press(plainText);
    EXPECT_EQ(desktop.log(), "write 1 forms to the pasteboard\npost key 9 with flags 0x100000\n");
    EXPECT_EQ(recorded(), "x") << "what was stripped is a copy like others";
}

TEST_F(ClipboardModuleTest, pastesNothingWhereThereIsNoText) {
    module->activate();
    desktop.pasteboard.copy({{PasteType::png, "picture"}});
    desktop.log();
    press(plainText);
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(ClipboardModuleTest, pastesASecretAndKeepsItOutOfEveryHistory) {
    module->activate();
    desktop.pasteboard.copy({{PasteType::plainText, "secret"}});
    desktop.pasteboard.copiedBy.isSecret = true;
    desktop.log();
    press(plainText);
    // The text, and the mark for others.
    EXPECT_EQ(desktop.log(), "write 2 forms to the pasteboard\npost key 9 with flags 0x100000\n");
    desktop.pasteboard.copiedBy.isSecret = false;
    EXPECT_EQ(recorded(), "");
}

TEST_F(ClipboardModuleTest, pastesWhatMayBeASecretAndKeepsItOutOfEveryHistory) {
    module->activate();
    desktop.pasteboard.copy({{PasteType::plainText, "perhaps secret"}});
    desktop.log();
    // Whose it is is not told in time, and then its text is.
    desktop.pasteboard.ownerHangs = true;
    desktop.hotkeys.press(Key::v, plainText);
    QCoreApplication::processEvents();
    ASSERT_TRUE(desktop.pasteboard.answer());
    desktop.pasteboard.ownerHangs = false;
    settle();
    EXPECT_EQ(desktop.log(), "write 2 forms to the pasteboard\npost key 9 with flags 0x100000\n");
    EXPECT_EQ(recorded(), "");
}

TEST_F(ClipboardModuleTest, pastesNothingWhenSomethingElseIsCopiedMeanwhile) {
    module->activate();
    desktop.pasteboard.copy({{PasteType::plainText, "old"}});
    desktop.log();
    desktop.hotkeys.press(Key::v, plainText);
    QCoreApplication::processEvents();
    desktop.pasteboard.copy({{PasteType::plainText, "new"}});
    settle();
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(ClipboardModuleTest, namesItsPageAndWhatItShows) {
    const auto page = module->settingsView();
    ASSERT_TRUE(page);
    EXPECT_EQ(page->source, QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/Clipboard/ClipboardSettings.qml")));
    EXPECT_TRUE(
        qobject_cast<ClipboardSettings *>(page->properties[QStringLiteral("settings")].value<QObject *>()));
}

TEST_F(ClipboardModuleTest, canGoWhileAPasteWaitsForItsText) {
    module->activate();
    desktop.pasteboard.copy({{PasteType::plainText, "x"}});
    desktop.hotkeys.press(Key::v, plainText);
    QCoreApplication::processEvents();
    module.reset();
    desktop.log();
    settle();
    press(plainText);
    EXPECT_EQ(desktop.log(), "");
}

}  // namespace
}  // namespace pimloft
