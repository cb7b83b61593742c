// SPDX-License-Identifier: MIT
#pragma once

#include "app/page.h"

#include <QSize>
#include <QString>

#include <memory>

class QWindow;

namespace pimloft {

/// A window to be made around a page.
struct WindowDescription {
    QString title;
    QSize contentSize;  ///< in points
    bool isResizable = false;
    bool isFloating = false;  ///< stays above normal windows
    Page page;
};

/// One window of ours. Destroying it closes it. Main thread.
class ViewWindow {
public:
    virtual ~ViewWindow() = default;

    /// Shows it centred when it is not on screen, brings it to the front and gives it the keyboard.
    virtual void present() = 0;
    /// Takes it off the screen; it can be presented again.
    virtual void close() = 0;
};

/// Makes windows from descriptions, so that who needs a window knows no toolkit. Main thread.
class ViewHost {
public:
    virtual ~ViewHost() = default;

    /// Whether this build has the view that `page` names.
    virtual bool offers(const Page &page) const = 0;
    virtual std::unique_ptr<ViewWindow> makeWindow(const WindowDescription &description) = 0;
    /// The page as a panel shows it: translucent and without a native window yet. Lives no longer than the
    /// user interface does; what is left of it after that shows nothing.
    virtual std::unique_ptr<QWindow> makePanelContent(const Page &page) = 0;
};

}  // namespace pimloft
