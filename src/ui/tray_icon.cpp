// SPDX-License-Identifier: MIT
#include "ui/tray_icon.h"

#include "app/accessibility_manager.h"
#include "app/app_state.h"
#include "platform/appearance/appearance.h"
#include "platform/diagnosis/diagnosis.h"
#include "ui/kit/symbols.h"
#include "ui/kit/theme.h"

#include <QCoreApplication>
#include <QMenu>
#include <QSystemTrayIcon>

namespace pimloft {

namespace {

/// The findings begin with what everything else depends on, so the first refusal is the reason of the others.
QString firstObstacle(DiagnosisService &diagnosis) {
    for (const Finding &finding : diagnosis.findings())
        if (!finding.granted)
            return QCoreApplication::translate("Diagnosis", finding.detail.toUtf8().constData());
    return {};
}

}  // namespace

TrayIcon::TrayIcon(AppState &appState, AccessibilityManager &accessibility, DiagnosisService &diagnosis,
                   const AppearanceService &appearance, Theme &theme)
    : appState_(appState), accessibility_(accessibility), diagnosis_(diagnosis), appearance_(appearance),
      theme_(theme), menu_(std::make_unique<QMenu>()), icon_(std::make_unique<QSystemTrayIcon>()) {
    makeMenu();
    draw();
    describe();
    connect(&appState_, &AppState::changed, this, &TrayIcon::draw);
    connect(&theme_, &Theme::changed, this, &TrayIcon::draw);
    connect(&accessibility_, &AccessibilityManager::isAccessibilityGrantedChanged, this, &TrayIcon::describe);
    connect(icon_.get(), &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick)
            emit clicked();
    });
    icon_->show();
}

TrayIcon::~TrayIcon() = default;

void TrayIcon::makeMenu() {
    menu_->addAction(tr("Open Pimloft"), this, &TrayIcon::openRequested);
    menu_->addAction(tr("Open Settings"), this, &TrayIcon::settingsRequested);
    menu_->addSeparator();
    menu_->addAction(tr("Quit"), this, &TrayIcon::quitRequested);
    icon_->setContextMenu(menu_.get());
}

void TrayIcon::draw() {
    const QIcon own = appearance_.traySymbol(appState_.menuBarIcon());
    if (!own.isNull())
        return icon_->setIcon(own);
    // Nobody tells what colour the tray has. It mostly goes with the look of the desktop; where it does not,
    // the halo in the other colour keeps the symbol visible.
    const ThemeColors &colors = theme_.colors();
    QColor halo = theme_.isDark() ? QColor(Qt::black) : QColor(Qt::white);
    halo.setAlphaF(0.6F);
    icon_->setIcon(symbolIcon(appState_.menuBarIcon(), colors.text, halo));
}

void TrayIcon::describe() {
    const QString name = QStringLiteral("Pimloft");
    const QString obstacle = accessibility_.isAccessibilityGranted() ? QString() : firstObstacle(diagnosis_);
    icon_->setToolTip(obstacle.isEmpty() ? name : name + QLatin1Char('\n') + obstacle);
}

QRect TrayIcon::geometry() const {
    return icon_->geometry();
}

QString TrayIcon::toolTip() const {
    return icon_->toolTip();
}

}  // namespace pimloft
