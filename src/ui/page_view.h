// SPDX-License-Identifier: MIT
#pragma once

#include "app/page.h"

#include <QQuickView>

namespace pimloft {

class QuickEngine;

/// A native window that shows one page and nothing else. Main thread.
class PageView : public QQuickView {
    Q_OBJECT

public:
    /// The page is loaded at once. The engine never owns the objects that the page is given.
    PageView(QuickEngine &engine, const Page &page);

signals:
    /// The user pressed Escape or Control+W, and nothing in the page took it.
    void closeKeyPressed();

protected:
    void keyPressEvent(QKeyEvent *event) override;
};

}  // namespace pimloft
