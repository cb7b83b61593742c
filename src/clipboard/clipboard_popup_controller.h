// SPDX-License-Identifier: MIT
#pragma once

#include "app/panel_fade.h"

#include <QObject>

#include <functional>
#include <memory>

namespace pimloft {

class ClipboardEngine;
class ClipboardPopup;
class ClipboardStore;
class Clock;
class DisplayService;
class MouseWatch;
class Panel;
class PanelService;
class ViewHost;
class WorkspaceService;

/// Opens and closes the popup with the clipboard history. Main thread.
class ClipboardPopupController : public QObject {
    Q_OBJECT

public:
    /// What it needs of the desktop.
    struct Desktop {
        DisplayService &displays;
        MouseWatch &mouse;
        PanelService &panels;
        WorkspaceService &workspace;
        const Clock &clock;
    };
    /// `views` answers who makes the popup's view, or nothing while there is no user interface.
    ClipboardPopupController(ClipboardStore &store, ClipboardEngine &engine, const Desktop &desktop,
                             std::function<ViewHost *()> views);
    ~ClipboardPopupController() override;

    /// Opens it at the pointer, with a new view each time. Nothing happens while it is there, be it fading
    /// out, and while another program holds the keyboard.
    void show();
    /// Gives the keyboard back and fades it out. Nothing happens while there is none.
    void hide();

    /// Whether there is a popup; a fading one still counts.
    bool isOpen() const { return popupWindow_ != nullptr; }
    const Panel *popupWindow() const { return popupWindow_.get(); }

private:
    std::unique_ptr<Panel> makePanel(ViewHost &views, double shadow);
    void close();

    ClipboardStore &store_;
    ClipboardEngine &engine_;
    const Desktop desktop_;
    const std::function<ViewHost *()> views_;
    std::unique_ptr<ClipboardPopup> popup_;  ///< what the view in popupWindow_ shows
    std::unique_ptr<Panel> popupWindow_;
    PanelFade fade_;
};

}  // namespace pimloft
