// SPDX-License-Identifier: MIT
#pragma once

#include "app/pimloft_module.h"
#include "finderfix/finder_fix_settings.h"

#include <memory>

namespace pimloft {

class AccessibilityManager;
class CutPasteEngine;

/// The file tools as the rest of the program sees them. Main thread.
class FinderFixModule final : public PimloftModule {
    Q_OBJECT

public:
    /// What it works with; all of it outlives the module.
    struct Collaborators {
        SettingsManager &settings;
        AccessibilityManager &accessibility;
        CutPasteEngine &engine;
        const NewFileService &newFiles;
        CustomTemplates &templates;
        WorkspaceService &workspace;
    };
    /// On the shared instances.
    static std::unique_ptr<FinderFixModule> create();
    explicit FinderFixModule(const Collaborators &collaborators);

    void activate() override;
    void deactivate() override;
    std::optional<Page> settingsView() override;

private:
    AccessibilityManager &accessibility_;
    CutPasteEngine &engine_;
    FinderFixSettings pageModel_;
};

}  // namespace pimloft
