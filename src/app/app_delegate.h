// SPDX-License-Identifier: MIT
#pragma once

#include "app/view_host.h"

#include <QObject>

#include <functional>
#include <memory>

namespace pimloft {

class AccessibilityManager;
class AppState;
class Onboarding;
class SettingsManager;
class WhatsNew;
class WorkspaceService;

/// Decides what happens when the program starts and ends. Main thread.
class AppDelegate : public QObject {
    Q_OBJECT

public:
    /// What it works with; all of it outlives it.
    struct Collaborators {
        SettingsManager &settings;
        AccessibilityManager &accessibility;
        WorkspaceService &workspace;
        ViewHost &views;
    };
    /// `appState` answers the shared state; it is asked for as late as possible, since that makes the
    /// modules.
    AppDelegate(const Collaborators &collaborators, std::function<AppState &()> appState);
    ~AppDelegate() override;

    /// Opens the first-run window, or else starts the modules and tells what is new. A view that this build
    /// lacks counts as gone through.
    void applicationDidFinishLaunching();
    /// Stops every module.
    void applicationWillTerminate();

    /// Called at the end of what the windows show, when that has been stored.
    void completeOnboarding();
    void dismissWhatsNew();

    /// A window stays here when the user closes it without going through it.
    const ViewWindow *onboardingWindow() const { return onboardingWindow_.get(); }
    const ViewWindow *whatsNewWindow() const { return whatsNewWindow_.get(); }
    /// What is in them.
    Onboarding *onboarding() const { return onboarding_.get(); }
    WhatsNew *whatsNew() const { return whatsNew_.get(); }

private:
    void showOnboarding();
    void showWhatsNew(const QString &version);
    void releaseLater(std::unique_ptr<ViewWindow> window);

    SettingsManager &settings_;
    AccessibilityManager &accessibility_;
    WorkspaceService &workspace_;
    ViewHost &views_;
    std::function<AppState &()> appState_;
    std::unique_ptr<Onboarding> onboarding_;
    std::unique_ptr<WhatsNew> whatsNew_;
    std::unique_ptr<ViewWindow> onboardingWindow_;
    std::unique_ptr<ViewWindow> whatsNewWindow_;
};

}  // namespace pimloft
