// SPDX-License-Identifier: MIT
#pragma once

#include "fake_appkit.h"
#include "mac_test.h"
#include "platform/appearance/mac_appearance.h"
#include "platform/panels/mac_panels.h"

#include <QPointer>
#include <QRasterWindow>

namespace pimloft::test {

/// Panels around windows whose native views the test provides, as Qt does on a Mac.
class PanelSession : public MacTest {
protected:
    ~PanelSession() override {
        for (const std::uintptr_t view : views_)
            mac::releaseView(view);
    }

    std::unique_ptr<Panel> make(PanelKind kind) {
        auto content = std::make_unique<QRasterWindow>();
        content_ = content.get();
        return panels_.create(kind, std::move(content));
    }

    std::vector<std::uintptr_t> views_;
    QPointer<QWindow> content_;  ///< of the newest panel
    MacAppearance appearance_;
    MacPanels panels_{appearance_, std::chrono::seconds(60),
                      [this](QWindow &) { return views_.emplace_back(mac::makeView()); }};
};

}  // namespace pimloft::test
