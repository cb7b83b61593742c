// SPDX-License-Identifier: MIT
#include "ui/pimloft_app.h"

#include "app/accessibility_manager.h"
#include "app/app_state.h"
#include "app/process.h"
#include "app/settings_manager.h"
#include "ui/kit/brand_mark.h"
#include "ui/kit/theme.h"
#include "ui/quick_view_host.h"
#include "ui/screen_space.h"
#include "updates/update_manager.h"

#include <QCursor>
#include <QGuiApplication>

namespace pimloft {

namespace {

/// A click on the tray icon closes the popover by its press already; the click itself arrives with the
/// release. Milliseconds that a finger may rest between the two, and how far it may slip.
constexpr qint64 longestClick = 1000;
constexpr int slip = 8;

}  // namespace

PimloftApp::PimloftApp(Process &process, AppState &appState, QuickViewHost &views)
    : widgets_(Theme::shared()), general_(SettingsManager::shared(), AccessibilityManager::shared(),
                                          UpdateManager::shared(), process.platform().workspace),
      settings_(views, general_.page(), appState.allModules()),
      popover_(appState, AccessibilityManager::shared(), views.engine(), process.platform().panels,
               process.platform().displays),
      tray_(appState, AccessibilityManager::shared(), process.platform().diagnosis,
            process.platform().appearance, Theme::shared()) {
    QGuiApplication::setWindowIcon(brandIcon());
    connect(&tray_, &TrayIcon::clicked, this, &PimloftApp::trayClicked);
    connect(&tray_, &TrayIcon::openRequested, this, &PimloftApp::openPopover);
    connect(&tray_, &TrayIcon::settingsRequested, this, &PimloftApp::openSettings);
    connect(&tray_, &TrayIcon::quitRequested, qApp, &QCoreApplication::quit);
    connect(&popover_, &PopoverController::settingsRequested, this, &PimloftApp::openSettings);
    connect(&popover_, &PopoverController::quitRequested, qApp, &QCoreApplication::quit);
    connect(&popover_, &PopoverController::dismissedByClick, this, [this] {
        sinceDismissal_.start();
        dismissalPosition_ = QCursor::pos();
    });
}

PimloftApp::~PimloftApp() = default;

void PimloftApp::openPopover() {
    popover_.open(anchor());
}

void PimloftApp::openSettings() {
    popover_.close();
    settings_.open();
}

void PimloftApp::trayClicked() {
    if (popover_.isOpen())
        return popover_.close();
    const bool closedByThisClick = sinceDismissal_.isValid() && !sinceDismissal_.hasExpired(longestClick) &&
                                   (QCursor::pos() - dismissalPosition_).manhattanLength() <= slip;
    sinceDismissal_.invalidate();
    if (!closedByThisClick)
        openPopover();
}

QRectF PimloftApp::anchor() const {
    const QRect icon = tray_.geometry();
    return ScreenSpace::current().toDesktop(icon.isEmpty() ? QRect(QCursor::pos(), QSize(1, 1)) : icon);
}

}  // namespace pimloft
