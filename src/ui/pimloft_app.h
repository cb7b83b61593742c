// SPDX-License-Identifier: MIT
#pragma once

#include "ui/general_settings.h"
#include "ui/popover_controller.h"
#include "ui/settings_window.h"
#include "ui/tray_icon.h"
#include "ui/widget_look.h"

#include <QElapsedTimer>

namespace pimloft {

class Process;
class QuickViewHost;

/// What the user sees of the program: the tray icon with its popover, and the settings window. Made once,
/// after the QApplication; nothing of QML exists before the first of its windows opens. Main thread.
class PimloftApp : public QObject {
    Q_OBJECT

public:
    PimloftApp(Process &process, AppState &appState, QuickViewHost &views);
    ~PimloftApp() override;

    /// Shows the popover at the tray icon, or at the pointer where the tray does not say where the icon is.
    void openPopover();
    /// Opens the settings window or brings it to the front.
    void openSettings();

    const TrayIcon &tray() const { return tray_; }

private:
    void trayClicked();
    QRectF anchor() const;

    WidgetLook widgets_;
    GeneralSettings general_;
    SettingsWindow settings_;
    PopoverController popover_;
    TrayIcon tray_;
    QElapsedTimer sinceDismissal_;  ///< since a press elsewhere closed the popover
    QPoint dismissalPosition_;
};

}  // namespace pimloft
