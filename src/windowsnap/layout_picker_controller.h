// SPDX-License-Identifier: MIT
#pragma once

#include "app/panel_fade.h"

#include <memory>

namespace pimloft {

class Panel;

/// Holds the window from which a layout can be picked, when there is one. Nothing opens it yet. Main thread.
class LayoutPickerController {
public:
    explicit LayoutPickerController(const PanelService &panels,
                                    std::unique_ptr<Panel> pickerWindow = nullptr);
    ~LayoutPickerController();

    /// Fades the window out in 0.15 s and destroys it.
    void hide();

    const Panel *pickerWindow() const { return pickerWindow_.get(); }

private:
    std::unique_ptr<Panel> pickerWindow_;
    PanelFade fade_;
};

}  // namespace pimloft
