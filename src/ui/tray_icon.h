// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QRect>

#include <memory>

class QMenu;
class QSystemTrayIcon;

namespace pimloft {

class AccessibilityManager;
class AppearanceService;
class AppState;
class DiagnosisService;
class Theme;

/// The program's symbol in the desktop's tray. Where there is no tray, nothing is seen of it until one
/// starts. Main thread.
class TrayIcon : public QObject {
    Q_OBJECT

public:
    TrayIcon(AppState &appState, AccessibilityManager &accessibility, DiagnosisService &diagnosis,
             const AppearanceService &appearance, Theme &theme);
    ~TrayIcon() override;

    /// Where it is, in Qt's coordinates. Empty where the tray does not tell.
    QRect geometry() const;
    QString toolTip() const;

signals:
    void clicked();
    void openRequested();
    void settingsRequested();
    void quitRequested();

private:
    void makeMenu();
    void draw();
    void describe();

    AppState &appState_;
    AccessibilityManager &accessibility_;
    DiagnosisService &diagnosis_;
    const AppearanceService &appearance_;
    Theme &theme_;
    std::unique_ptr<QMenu> menu_;
    std::unique_ptr<QSystemTrayIcon> icon_;
};

}  // namespace pimloft
