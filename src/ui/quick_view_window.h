// SPDX-License-Identifier: MIT
#pragma once

#include "app/view_host.h"

#include <QObject>

namespace pimloft {

class DisplayService;
class PageView;
class QuickEngine;
class Theme;

/// A titled window around a page. The page exists from the first presentation on; when the engine goes some
/// time after the window was closed, the page goes with it and comes back with the next one. Main thread.
class QuickViewWindow final : public QObject, public ViewWindow {
    Q_OBJECT

public:
    QuickViewWindow(const WindowDescription &description, QuickEngine &engine, DisplayService &displays,
                    Theme &theme);
    ~QuickViewWindow() override;

    void present() override;
    void close() override;

    /// Nothing before the first presentation and after the engine went.
    PageView *view() const { return view_.get(); }

private:
    void makeView();
    void centre();

    const WindowDescription description_;
    QuickEngine &engine_;
    DisplayService &displays_;
    Theme &theme_;
    // While it is on screen; outlives the view, which gives it up as it goes.
    std::shared_ptr<void> engineUse_;
    std::unique_ptr<PageView> view_;
};

}  // namespace pimloft
