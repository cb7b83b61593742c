// SPDX-License-Identifier: MIT
#pragma once

#include "platform/fake_log.h"
#include "platform/workspace/workspace.h"

#include <QHash>

namespace pimloft {

/// Running applications that a test starts and brings to the front.
class FakeWorkspace final : public WorkspaceService {
public:
    explicit FakeWorkspace(FakeLog &log) : log_(log) {}

    std::optional<Application> frontmostApplication() override { return frontmost; }
    std::vector<Application> runningApplications() override { return running; }
    QIcon icon(const Application &application) override { return icons.value(qint32(application.processId)); }
    QIcon fileIcon(const QString &) override { return files; }
    bool open(const QUrl &url) override {
        log_.line(QStringLiteral("open %1").arg(url.toString()));
        return true;
    }
    void reveal(const QString &path) override { log_.line(QStringLiteral("reveal %1").arg(path)); }

    void bringToFront(const Application &application) {
        frontmost = application;
        if (onFrontmostChanged)
            onFrontmostChanged();
    }

    std::optional<Application> frontmost;
    std::vector<Application> running;
    QIcon files;                 ///< the icon of every file
    QHash<qint32, QIcon> icons;  ///< by process

private:
    FakeLog &log_;
};

}  // namespace pimloft
