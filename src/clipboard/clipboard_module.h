// SPDX-License-Identifier: MIT
#pragma once

#include "app/pimloft_module.h"
#include "clipboard/clipboard_popup_controller.h"
#include "clipboard/clipboard_settings.h"

namespace pimloft {

class HotkeyManager;
class PasteboardService;
struct PasteData;

/// The clipboard history as a feature that can be switched. Main thread.
class ClipboardModule final : public PimloftModule {
    Q_OBJECT

public:
    /// On the shared instances.
    static std::unique_ptr<ClipboardModule> create();
    ClipboardModule(SettingsManager &settings, HotkeyManager &hotkeys, PasteboardService &pasteboard,
                    ClipboardStore &store, ClipboardEngine &engine,
                    const ClipboardPopupController::Desktop &desktop, std::function<ViewHost *()> views);
    ~ClipboardModule() override;

    /// Records copies and takes the two shortcuts.
    void activate() override;
    void deactivate() override;
    std::optional<Page> settingsView() override;

    const ClipboardPopupController &popupController() const { return popupController_; }
    /// Zero while they are not taken.
    std::uint32_t clipboardPopupHotkeyID() const { return clipboardPopupHotkeyID_; }
    std::uint32_t plainTextPasteHotkeyID() const { return plainTextPasteHotkeyID_; }

private:
    void unregisterHotkeys();
    void togglePopup();
    void pasteAsPlainText();
    void pastePlainText(const PasteData &text, bool isKeptOut);

    HotkeyManager &hotkeys_;
    PasteboardService &pasteboard_;
    ClipboardEngine &engine_;
    ClipboardPopupController popupController_;
    ClipboardSettings pageModel_;
    std::uint32_t clipboardPopupHotkeyID_ = 0;
    std::uint32_t plainTextPasteHotkeyID_ = 0;
};

}  // namespace pimloft
