// SPDX-License-Identifier: MIT
#pragma once

#include "app/permission_request.h"
#include "app/pimloft_module.h"

#include <QVariantList>

#include <functional>

namespace pimloft {

class AppState;
class SettingsManager;

/// One of the features that a new user chooses from. A value.
struct OnboardingModule {
    Q_GADGET
    Q_PROPERTY(pimloft::PimloftModule *module MEMBER module)
    Q_PROPERTY(QString description MEMBER description)

public:
    PimloftModule *module = nullptr;
    QString description;
};

/// The first run: which step a new user is at, and where each leads. Main thread.
class Onboarding : public QObject {
    Q_OBJECT
    Q_PROPERTY(int currentStep READ currentStep NOTIFY currentStepChanged)
    Q_PROPERTY(bool showsBack READ showsBack NOTIFY currentStepChanged)
    Q_PROPERTY(bool showsNext READ showsNext NOTIFY currentStepChanged)
    Q_PROPERTY(bool showsGetStarted READ showsGetStarted NOTIFY currentStepChanged)
    Q_PROPERTY(QVariantList modules READ modules CONSTANT)
    Q_PROPERTY(pimloft::PermissionRequest *permission READ permission CONSTANT)

public:
    enum Step { Welcome, Modules, Permission, Ready };
    Q_ENUM(Step)

    /// `onComplete` is called at the end, when that has been stored.
    Onboarding(AppState &appState, SettingsManager &settings, AccessibilityManager &accessibility,
               WorkspaceService &workspace, std::function<void()> onComplete);

    /// What the buttons do. None does anything on a step that does not show it.
    Q_INVOKABLE void back();
    Q_INVOKABLE void next();
    Q_INVOKABLE void getStarted();
    /// What the Return key does: the one thing that the step is about.
    Q_INVOKABLE void proceed();

    int currentStep() const { return currentStep_; }
    bool showsBack() const { return currentStep_ == Modules || currentStep_ == Permission; }
    bool showsNext() const { return currentStep_ == Welcome || currentStep_ == Modules; }
    bool showsGetStarted() const { return currentStep_ == Ready; }
    QVariantList modules() const;
    PermissionRequest *permission() { return &permission_; }

signals:
    void currentStepChanged();

private:
    void show(Step step);

    AppState &appState_;
    SettingsManager &settings_;
    PermissionRequest permission_;
    std::function<void()> onComplete_;
    Step currentStep_ = Welcome;
};

}  // namespace pimloft
