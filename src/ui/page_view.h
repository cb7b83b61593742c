// SPDX-License-Identifier: MIT
#pragma once

#include "app/page.h"
#include "ui/quick_engine.h"

#include <QPointer>
#include <QQuickView>

#include <deque>
#include <memory>

namespace pimloft {

/// A native window that shows one page and nothing else. Main thread.
class PageView : public QQuickView {
    Q_OBJECT

public:
    /// The page is loaded at once. The engine never owns the objects that the page is given.
    PageView(QuickEngine &engine, const Page &page);
    ~PageView() override;

signals:
    /// The user pressed Escape or Control+W, and nothing in the page took it.
    void closeKeyPressed();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    bool keepsForLater(QKeyEvent &event);
    void deliverTyped();

    std::deque<std::unique_ptr<QEvent>> typed_;  ///< while a page was being made
    bool isDelivering_ = false;
    const QPointer<QuickEngine> engine_;  ///< a panel may outlive it
};

}  // namespace pimloft
