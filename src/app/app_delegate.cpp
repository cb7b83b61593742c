// SPDX-License-Identifier: MIT
#include "app/app_delegate.h"

#include "app/app_state.h"
#include "app/bundle_info.h"
#include "app/onboarding.h"
#include "app/settings_keys.h"
#include "app/settings_manager.h"
#include "app/whats_new.h"
#include "platform/preferences/preferences.h"

#include <QGuiApplication>

namespace pimloft {

namespace {

const QUrl onboardingView = QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/Ui/OnboardingView.qml"));
const QUrl whatsNewView = QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/Ui/WhatsNewView.qml"));

}  // namespace

AppDelegate::AppDelegate(const Collaborators &collaborators, std::function<AppState &()> appState)
    : settings_(collaborators.settings), accessibility_(collaborators.accessibility),
      workspace_(collaborators.workspace), views_(collaborators.views), appState_(std::move(appState)) {
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching() {
    // The program lives in the menu bar: it goes on when its last window is closed.
    QGuiApplication::setQuitOnLastWindowClosed(false);

    if (!settings_.defaults().flag(SettingsKeys::hasCompletedOnboarding) &&
        views_.offers({onboardingView, {}})) {
        showOnboarding();
        return;
    }
    appState_().activateEnabledModules();

    const QString version = appVersion();
    if (WhatsNew::shouldShow(version, settings_.defaults()) && views_.offers({whatsNewView, {}}))
        showWhatsNew(version);
}

void AppDelegate::applicationWillTerminate() {
    appState_().deactivateModules();
}

void AppDelegate::showOnboarding() {
    onboarding_ = std::make_unique<Onboarding>(appState_(), settings_, accessibility_, workspace_,
                                               [this] { completeOnboarding(); });
    onboardingWindow_ = views_.makeWindow(
        {.title = tr("Welcome to Pimloft"),
         .contentSize = {560, 480},
         .isFloating = true,
         .page = {onboardingView, {{QStringLiteral("flow"), QVariant::fromValue(onboarding_.get())}}}});
    onboardingWindow_->present();
}

void AppDelegate::releaseLater(std::unique_ptr<ViewWindow> window) {
    QMetaObject::invokeMethod(
        this, [window = std::shared_ptr(std::move(window))] {}, Qt::QueuedConnection);
}

void AppDelegate::completeOnboarding() {
    // The view whose button was pressed is in this window: it goes when that is over.
    if (onboardingWindow_)
        onboardingWindow_->close();
    releaseLater(std::move(onboardingWindow_));
    appState_().activateEnabledModules();
}

void AppDelegate::showWhatsNew(const QString &version) {
    whatsNew_ = std::make_unique<WhatsNew>(version, WhatsNew::currentFeatures(), settings_.defaults(),
                                           [this] { dismissWhatsNew(); });
    whatsNewWindow_ = views_.makeWindow(
        {.title = tr("What's New"),
         .contentSize = {420, 400},
         .page = {whatsNewView, {{QStringLiteral("news"), QVariant::fromValue(whatsNew_.get())}}}});
    whatsNewWindow_->present();
}

void AppDelegate::dismissWhatsNew() {
    if (whatsNewWindow_)
        whatsNewWindow_->close();
    releaseLater(std::move(whatsNewWindow_));
}

}  // namespace pimloft
