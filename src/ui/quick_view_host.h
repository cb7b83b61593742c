// SPDX-License-Identifier: MIT
#pragma once

#include "app/view_host.h"
#include "ui/quick_engine.h"

namespace pimloft {

class DisplayService;
class Theme;

/// Makes windows around QML pages. Main thread.
class QuickViewHost final : public ViewHost {
public:
    QuickViewHost(DisplayService &displays, Theme &theme, const QuickEngine::Patience &patience = {});

    bool offers(const Page &page) const override;
    std::unique_ptr<ViewWindow> makeWindow(const WindowDescription &description) override;
    std::unique_ptr<QWindow> makePanelContent(const Page &page) override;

    /// For views that are not windows of their own.
    QuickEngine &engine() { return engine_; }

private:
    DisplayService &displays_;
    Theme &theme_;
    QuickEngine engine_;
};

}  // namespace pimloft
