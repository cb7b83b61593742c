// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QRectF>

#include <memory>

namespace pimloft {

class AccessibilityManager;
class AppState;
class DisplayService;
class PageView;
class Panel;
class PanelService;
class QuickEngine;

/// Shows and hides the panel that belongs to the tray icon. Main thread.
class PopoverController : public QObject {
    Q_OBJECT
    Q_PROPERTY(pimloft::AppState *appState READ appState CONSTANT)
    Q_PROPERTY(pimloft::AccessibilityManager *accessibility READ accessibility CONSTANT)
    Q_PROPERTY(bool blends READ blends NOTIFY blendsChanged)
    Q_MOC_INCLUDE("app/accessibility_manager.h")
    Q_MOC_INCLUDE("app/app_state.h")

public:
    PopoverController(AppState &appState, AccessibilityManager &accessibility, QuickEngine &engine,
                      PanelService &panels, DisplayService &displays);
    ~PopoverController() override;

    /// Shows it at `anchor` (desktop points), or keeps showing it. Nothing happens while another program
    /// holds the keyboard.
    void open(const QRectF &anchor);
    Q_INVOKABLE void close();
    bool isOpen() const { return isOpen_; }

    Q_INVOKABLE void openSettings();
    Q_INVOKABLE void quit();

    AppState *appState() const { return &appState_; }
    AccessibilityManager *accessibility() const { return &accessibility_; }
    /// Whether the desktop can show what is behind the panel's shadow and corners.
    bool blends() const { return blends_; }

signals:
    void blendsChanged();
    /// It is off the screen.
    void closed();
    /// It went because the user pressed a mouse button elsewhere.
    void dismissedByClick();
    void settingsRequested();
    void quitRequested();

private:
    void makePanel();
    void readBlending();
    QRectF frame() const;
    void follow();

    AppState &appState_;
    AccessibilityManager &accessibility_;
    QuickEngine &engine_;
    PanelService &panels_;
    DisplayService &displays_;
    std::unique_ptr<Panel> panel_;
    PageView *view_ = nullptr;         ///< the panel's content
    std::shared_ptr<void> engineUse_;  ///< while it is on screen
    QRectF anchor_;
    bool isOpen_ = false;
    bool blends_ = false;
};

}  // namespace pimloft
