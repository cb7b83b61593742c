// SPDX-License-Identifier: MIT
#pragma once

#include "app/view_host.h"

#include <QWindow>

namespace pimloft::test {

/// Views that show nothing, for tests of who asks for them.
class PlainViews final : public ViewHost {
public:
    bool offers(const Page &) const override { return true; }
    std::unique_ptr<ViewWindow> makeWindow(const WindowDescription &) override { return nullptr; }
    std::unique_ptr<QWindow> makePanelContent(const Page &page) override {
        asked.push_back(page);
        return std::make_unique<QWindow>();
    }

    std::vector<Page> asked;  ///< for the content of panels, oldest first
};

}  // namespace pimloft::test
