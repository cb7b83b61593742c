// SPDX-License-Identifier: MIT
#include "app/app_delegate.h"

#include "app/app_state.h"
#include "app/bundle_info.h"
#include "app/settings_keys.h"
#include "app/settings_manager.h"
#include "platform/preferences/preferences.h"

#include <QGuiApplication>

namespace pimloft {

namespace {

const QUrl onboardingView = QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/Ui/OnboardingView.qml"));
const QUrl whatsNewView = QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/Ui/WhatsNewView.qml"));

}  // namespace

AppDelegate::AppDelegate(SettingsManager &settings, ViewHost &views, std::function<AppState &()> appState)
    : settings_(settings), views_(views), appState_(std::move(appState)) {
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching() {
    // The program lives in the menu bar: it goes on when its last window is closed.
    QGuiApplication::setQuitOnLastWindowClosed(false);

    const Page onboarding{onboardingView,
                          {{QStringLiteral("delegate"), QVariant::fromValue<QObject *>(this)}}};
    if (!settings_.defaults().flag(SettingsKeys::hasCompletedOnboarding) && views_.offers(onboarding)) {
        showOnboarding(onboarding);
        return;
    }
    appState_().activateEnabledModules();

    const Page whatsNew{whatsNewView,
                        {{QStringLiteral("delegate"), QVariant::fromValue<QObject *>(this)},
                         {QStringLiteral("version"), appVersion()}}};
    if (hasNews() && views_.offers(whatsNew))
        showWhatsNew(whatsNew);
}

void AppDelegate::applicationWillTerminate() {
    appState_().deactivateModules();
}

bool AppDelegate::hasNews() const {
    return settings_.defaults().text(SettingsKeys::lastSeenVersion) != appVersion();
}

void AppDelegate::showOnboarding(const Page &page) {
    Page withModules = page;
    withModules.properties[QStringLiteral("appState")] = QVariant::fromValue<QObject *>(&appState_());
    onboardingWindow_ = views_.makeWindow({.title = tr("Welcome to Pimloft"),
                                           .contentSize = {560, 480},
                                           .isFloating = true,
                                           .page = withModules});
    onboardingWindow_->present();
}

void AppDelegate::releaseLater(std::unique_ptr<ViewWindow> window) {
    QMetaObject::invokeMethod(
        this, [window = std::shared_ptr(std::move(window))] {}, Qt::QueuedConnection);
}

void AppDelegate::completeOnboarding() {
    // The view that calls is in this window: it goes when the call is over.
    if (onboardingWindow_)
        onboardingWindow_->close();
    releaseLater(std::move(onboardingWindow_));
    appState_().activateEnabledModules();
}

void AppDelegate::showWhatsNew(const Page &page) {
    whatsNewWindow_ = views_.makeWindow({.title = tr("What's New"), .contentSize = {420, 400}, .page = page});
    whatsNewWindow_->present();
}

void AppDelegate::dismissWhatsNew() {
    if (whatsNewWindow_)
        whatsNewWindow_->close();
    releaseLater(std::move(whatsNewWindow_));
}

}  // namespace pimloft
