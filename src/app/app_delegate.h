// SPDX-License-Identifier: MIT
#pragma once

#include "app/view_host.h"

#include <QObject>

#include <functional>
#include <memory>

namespace pimloft {

class AppState;
class SettingsManager;

/// Decides what happens when the program starts and ends. Main thread.
class AppDelegate : public QObject {
    Q_OBJECT

public:
    /// `appState` answers the shared state; it is asked for as late as possible, since that makes the
    /// modules.
    AppDelegate(SettingsManager &settings, ViewHost &views, std::function<AppState &()> appState);
    ~AppDelegate() override;

    /// Opens the first-run window, or else starts the modules and tells what is new. A view that this build
    /// lacks counts as gone through.
    void applicationDidFinishLaunching();
    /// Stops every module.
    void applicationWillTerminate();

    /// Called by the views at their end, after they have stored it.
    Q_INVOKABLE void completeOnboarding();
    Q_INVOKABLE void dismissWhatsNew();

    /// A window stays here when the user closes it without going through it.
    const ViewWindow *onboardingWindow() const { return onboardingWindow_.get(); }
    const ViewWindow *whatsNewWindow() const { return whatsNewWindow_.get(); }

private:
    void showOnboarding(const Page &page);
    void showWhatsNew(const Page &page);
    void releaseLater(std::unique_ptr<ViewWindow> window);
    /// Whether the news of this version have not been dismissed yet.
    bool hasNews() const;

    SettingsManager &settings_;
    ViewHost &views_;
    std::function<AppState &()> appState_;
    std::unique_ptr<ViewWindow> onboardingWindow_;
    std::unique_ptr<ViewWindow> whatsNewWindow_;
};

}  // namespace pimloft
