// SPDX-License-Identifier: MIT
#pragma once

#include "platform/mac/mac_notice.h"
#include "platform/workspace/workspace.h"

#include <QObject>

namespace pimloft {

/// The applications and files of the system's workspace. Main thread.
class MacWorkspace final : public WorkspaceService {
public:
    MacWorkspace();

    std::optional<Application> frontmostApplication() override;
    std::vector<Application> runningApplications() override;
    QIcon icon(const Application &application) override;
    QIcon fileIcon(const QString &path) override;
    bool open(const QUrl &url) override;
    void reveal(const QString &path) override;

private:
    void announce();

    MacNotice activations_;
    QObject calls_;  ///< receives what is queued
};

}  // namespace pimloft
