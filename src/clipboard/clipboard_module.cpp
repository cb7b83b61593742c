// SPDX-License-Identifier: MIT
#include "clipboard/clipboard_module.h"

#include "app/hotkey_manager.h"
#include "app/process.h"
#include "app/settings_manager.h"
#include "clipboard/clipboard_engine.h"
#include "clipboard/clipboard_shortcuts.h"
#include "clipboard/clipboard_store.h"
#include "platform/pasteboard/pasteboard.h"

namespace pimloft {

std::unique_ptr<ClipboardModule> ClipboardModule::create() {
    Process &process = Process::current();
    const Platform &platform = process.platform();
    return std::make_unique<ClipboardModule>(SettingsManager::shared(), HotkeyManager::shared(),
                                             platform.pasteboard, ClipboardStore::shared(),
                                             ClipboardEngine::shared(),
                                             ClipboardPopupController::Desktop{
                                                 .displays = platform.displays,
                                                 .mouse = platform.mouse,
                                                 .panels = platform.panels,
                                                 .workspace = platform.workspace,
                                                 .clock = process.clock(),
                                             },
                                             [&process] { return process.views(); });
}

ClipboardModule::ClipboardModule(SettingsManager &settings, HotkeyManager &hotkeys,
                                 PasteboardService &pasteboard, ClipboardStore &store,
                                 ClipboardEngine &engine, const ClipboardPopupController::Desktop &desktop,
                                 std::function<ViewHost *()> views)
    : PimloftModule({.id = QStringLiteral("clipboardplus"),
                     .name = QStringLiteral("ClipboardPlus"),
                     .icon = QStringLiteral("doc.on.clipboard"),
                     .description = tr("Clipboard history with Cmd+Shift+V popup"),
                     .requiresAccessibility = false},
                    settings),
      hotkeys_(hotkeys), pasteboard_(pasteboard), engine_(engine),
      popupController_(store, engine, desktop, std::move(views)), pageModel_(settings, store, hotkeys) {
}

ClipboardModule::~ClipboardModule() {
    unregisterHotkeys();
}

void ClipboardModule::activate() {
    engine_.start();
    if (clipboardPopupHotkeyID_ != 0)
        return;
    clipboardPopupHotkeyID_ =
        hotkeys_.registerHotkey(popupShortcut.key, popupShortcut.modifiers, [this] { togglePopup(); });
    plainTextPasteHotkeyID_ = hotkeys_.registerHotkey(plainTextShortcut.key, plainTextShortcut.modifiers,
                                                      [this] { pasteAsPlainText(); });
}

void ClipboardModule::deactivate() {
    engine_.stop();
    unregisterHotkeys();
    popupController_.hide();
}

void ClipboardModule::unregisterHotkeys() {
    hotkeys_.unregister(std::exchange(clipboardPopupHotkeyID_, 0));
    hotkeys_.unregister(std::exchange(plainTextPasteHotkeyID_, 0));
}

void ClipboardModule::togglePopup() {
    if (popupController_.isOpen())
        popupController_.hide();
    else
        popupController_.show();
}

void ClipboardModule::pasteAsPlainText() {
    const qint64 change = pasteboard_.changeCount();
    // Once it is ours its owner's wish can no longer be seen.
    pasteboard_.origin(change, this, [this, change](const std::optional<PasteOrigin> &origin) {
        // An owner that does not tell in time may be a password manager.
        const bool isKeptOut = !origin || ClipboardEngine::isKeptOut(*origin);
        pasteboard_.read(change, {PasteType::plainText}, ClipboardEngine::largestOther, this,
                         [this, isKeptOut](const PasteData &text) { pastePlainText(text, isKeptOut); });
    });
}

void ClipboardModule::pastePlainText(const PasteData &text, bool isKeptOut) {
    if (text.status != PasteData::present)
        return;
    std::vector<PasteItem> items{{PasteType::plainText, text.bytes}};
    if (isKeptOut)
        items.push_back({PasteType::secretMark, {}});
    const qint64 written = pasteboard_.write(std::move(items));
    if (isKeptOut)
        engine_.skipChange(written);
    engine_.simulatePaste();
}

std::optional<Page> ClipboardModule::settingsView() {
    return Page{QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/Clipboard/ClipboardSettings.qml")),
                {{QStringLiteral("settings"), QVariant::fromValue<QObject *>(&pageModel_)}}};
}

}  // namespace pimloft
