// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pimloft.Kit
import Pimloft.Ui

/// The first run, step by step.
WindowContent {
    id: view

    required property Onboarding flow

    implicitWidth: Theme.unit * 140
    implicitHeight: Theme.unit * 120
    Keys.onReturnPressed: flow.proceed()
    Keys.onEnterPressed: flow.proceed()
    // It would go for good, and nothing would have been started.
    Keys.onEscapePressed: event => event.accepted = true

    Connections {
        target: view.flow
        function onCurrentStepChanged() {
            view.forceActiveFocus();
        }
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: Theme.unit * 8
        spacing: Theme.unit * 5

        Item {
            Layout.fillWidth: true
            Layout.fillHeight: true

            OnboardingStep {
                shown: view.flow.currentStep === Onboarding.Welcome

                OnboardingWelcome {
                    anchors.fill: parent
                }
            }
            OnboardingStep {
                shown: view.flow.currentStep === Onboarding.Modules

                OnboardingModules {
                    anchors.fill: parent
                    modules: view.flow.modules
                }
            }
            OnboardingStep {
                shown: view.flow.currentStep === Onboarding.Permission

                PermissionView {
                    anchors.fill: parent
                    request: view.flow.permission
                }
            }
            OnboardingStep {
                shown: view.flow.currentStep === Onboarding.Ready

                OnboardingReady {
                    anchors.fill: parent
                }
            }
        }
        Item {
            Layout.fillWidth: true
            implicitHeight: Theme.controlHeight

            PushButton {
                anchors.left: parent.left
                visible: view.flow.showsBack
                text: qsTr("Back")
                onClicked: view.flow.back()
            }
            StepDots {
                anchors.centerIn: parent
                count: 4
                current: view.flow.currentStep
            }
            PushButton {
                anchors.right: parent.right
                visible: view.flow.showsNext
                prominent: true
                text: qsTr("Next")
                onClicked: view.flow.next()
            }
            PushButton {
                anchors.right: parent.right
                visible: view.flow.showsGetStarted
                prominent: true
                text: qsTr("Get Started")
                onClicked: view.flow.getStarted()
            }
        }
    }
}
