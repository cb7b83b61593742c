// SPDX-License-Identifier: MIT
#pragma once

#include "platform/panels/mac_panel_window.h"
#include "platform/panels/panels.h"

#include <QObject>
#include <QWindow>

namespace pimloft {

/// What both kinds of panel are: a window of the system's with Qt's content in it. Main thread.
class MacPanel : public QObject, public Panel {
public:
    void setFrame(const QRectF &frame) override;
    void setOpacity(double opacity) override;

protected:
    MacPanel(PanelKind kind, std::unique_ptr<QWindow> content, std::uintptr_t view);

    void open(const QRectF &frame);
    void close();
    bool isShown() const { return shown_; }
    QWindow &content() { return *content_; }
    MacPanelWindow &window() { return window_; }

    /// The keyboard went to another window of this application.
    virtual void handleLostTyping() {}

private:
    std::unique_ptr<QWindow> content_;
    MacPanelWindow window_;
    bool shown_ = false;
};

/// A panel that clicks pass through. Main thread.
class MacOverlay final : public MacPanel {
public:
    MacOverlay(std::unique_ptr<QWindow> content, std::uintptr_t view);

    bool show(const QRectF &frame) override;
    void releaseTyping() override {}
    void orderOut() override { close(); }
};

}  // namespace pimloft
