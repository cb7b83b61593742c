// SPDX-License-Identifier: MIT
#pragma once

#include "platform/panels/panels.h"

#include <chrono>
#include <cstdint>
#include <functional>

namespace pimloft {

class AppearanceService;
class MacPopup;

/// Panels of AppKit's own kind around views of Qt's. Main thread, with a QGuiApplication.
class MacPanels final : public PanelService {
public:
    /// Answers the native view of a window that is not on screen.
    using ViewOf = std::function<std::uintptr_t(QWindow &)>;

    /// `idle`: how long a popup waits for input.
    explicit MacPanels(const AppearanceService &appearance,
                       std::chrono::milliseconds idle = std::chrono::seconds(60), ViewOf viewOf = nativeView);

    std::unique_ptr<Panel> create(PanelKind kind, std::unique_ptr<QWindow> content) override;
    /// Every window of this system is blended.
    bool blends() const override { return true; }
    bool reducesMotion() const override;

    /// The popup that has the keyboard gives it back, as KeyPoster needs it.
    void endTyping();

    static std::uintptr_t nativeView(QWindow &window);

private:
    friend class MacPopup;

    const AppearanceService &appearance_;
    const std::chrono::milliseconds idle_;
    const ViewOf viewOf_;
    MacPopup *typing_ = nullptr;
};

}  // namespace pimloft
