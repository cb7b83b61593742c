// SPDX-License-Identifier: MIT
#include "app/onboarding.h"

#include "app/accessibility_manager.h"
#include "app/app_state.h"
#include "app/settings_keys.h"
#include "app/settings_manager.h"
#include "platform/preferences/preferences.h"

namespace pimloft {

Onboarding::Onboarding(AppState &appState, SettingsManager &settings, AccessibilityManager &accessibility,
                       WorkspaceService &workspace, std::function<void()> onComplete)
    : appState_(appState), settings_(settings), permission_(accessibility, workspace,
                                                            [this] {
                                                                // The grant may come when the user has gone
                                                                // on without it, or back.
                                                                if (currentStep_ == Permission)
                                                                    show(Ready);
                                                            }),
      onComplete_(std::move(onComplete)) {
}

void Onboarding::back() {
    if (showsBack())
        show(Step(currentStep_ - 1));
}

void Onboarding::next() {
    if (showsNext())
        show(Step(currentStep_ + 1));
}

void Onboarding::getStarted() {
    if (!showsGetStarted())
        return;
    settings_.defaults().set(SettingsKeys::hasCompletedOnboarding, true);
    onComplete_();
}

void Onboarding::proceed() {
    if (showsNext())
        next();
    else if (showsGetStarted())
        getStarted();
    else if (!permission_.accessibilityManager()->isAccessibilityGranted())
        permission_.openSystemSettings();
}

void Onboarding::show(Step step) {
    currentStep_ = step;
    emit currentStepChanged();
    if (step == Permission)
        permission_.appear();
}

QVariantList Onboarding::modules() const {
    const QStringList descriptions = {
        tr("Windows 11-style window snapping with visual layout picker"),
        tr("Clipboard history with Cmd+Shift+V popup"),
        tr("Cmd+X cut-paste for files, New File in Finder"),
        tr("One-click Ctrl↔Cmd swap, Windows key behavior"),
        tr("Per-app volume mixer in your menu bar"),
    };
    QVariantList list;
    for (PimloftModule *module : appState_.allModules())
        list << QVariant::fromValue(OnboardingModule{module, descriptions.value(list.size())});
    return list;
}

}  // namespace pimloft
