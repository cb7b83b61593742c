// SPDX-License-Identifier: MIT
#include "finderfix/finder_fix_module.h"

#include "app/accessibility_manager.h"
#include "app/process.h"
#include "app/settings_manager.h"
#include "finderfix/custom_templates.h"
#include "finderfix/cut_paste_engine.h"
#include "finderfix/new_file_service.h"

namespace pimloft {

std::unique_ptr<FinderFixModule> FinderFixModule::create() {
    return std::make_unique<FinderFixModule>(
        Collaborators{.settings = SettingsManager::shared(),
                      .accessibility = AccessibilityManager::shared(),
                      .engine = CutPasteEngine::shared(),
                      .newFiles = NewFileService::shared(),
                      .templates = CustomTemplates::shared(),
                      .workspace = Process::current().platform().workspace});
}

FinderFixModule::FinderFixModule(const Collaborators &collaborators)
    : PimloftModule({.id = QStringLiteral("finderfix"),
                     .name = QStringLiteral("FinderFix"),
                     .icon = QStringLiteral("folder.badge.gearshape"),
                     .description = tr("Cmd+X cut-paste for files, New File in Finder"),
                     .requiresAccessibility = true},
                    collaborators.settings),
      accessibility_(collaborators.accessibility), engine_(collaborators.engine),
      pageModel_(collaborators.newFiles, collaborators.templates, collaborators.workspace) {
}

void FinderFixModule::activate() {
    if (accessibility_.isAccessibilityGranted())
        engine_.start();
}

void FinderFixModule::deactivate() {
    engine_.stop();
}

std::optional<Page> FinderFixModule::settingsView() {
    pageModel_.refresh();
    return Page{QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/FinderFix/FinderFixSettings.qml")),
                {{QStringLiteral("settings"), QVariant::fromValue<QObject *>(&pageModel_)}}};
}

}  // namespace pimloft
