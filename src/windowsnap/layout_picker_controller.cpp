// SPDX-License-Identifier: MIT
#include "windowsnap/layout_picker_controller.h"

#include "platform/panels/panels.h"

namespace pimloft {

LayoutPickerController::LayoutPickerController(const PanelService &panels,
                                               std::unique_ptr<Panel> pickerWindow)
    : pickerWindow_(std::move(pickerWindow)), fade_(panels) {
}

LayoutPickerController::~LayoutPickerController() = default;

void LayoutPickerController::hide() {
    if (!pickerWindow_ || fade_.isFadingOut())
        return;
    constexpr std::chrono::milliseconds duration{150};
    fade_.out(
        *pickerWindow_,
        [this] {
            pickerWindow_->orderOut();
            pickerWindow_.reset();
        },
        duration);
}

}  // namespace pimloft
