// SPDX-License-Identifier: MIT
#include "updates/update_manager.h"

#include "app/bundle_info.h"
#include "app/process.h"
#include "platform/workspace/workspace.h"
#include "updates/appcast_parser.h"
#include "updates/https_fetcher.h"
#include "updates/version_order.h"

#include <QVariant>

#include <utility>

namespace pimloft {

UpdateManager &UpdateManager::shared() {
    return Process::current().shared<UpdateManager>([](Process &process) {
        return std::make_unique<UpdateManager>(QStringLiteral(PIMLOFT_APPCAST_URL), appVersion(),
                                               std::make_unique<HttpsFetcher>(),
                                               process.platform().workspace);
    });
}

UpdateManager::UpdateManager(QString appcastURL, QString runningVersion,
                             std::unique_ptr<AppcastFetcher> fetcher, WorkspaceService &workspace)
    : appcastURL_(std::move(appcastURL)), runningVersion_(std::move(runningVersion)),
      fetcher_(std::move(fetcher)), workspace_(workspace) {
    reader_.setMaxThreadCount(1);
}

UpdateManager::~UpdateManager() {
    reader_.clear();
    reader_.waitForDone();
}

void UpdateManager::checkForUpdatesNow() {
    setChecking(true);
    checkAppcast();
}

void UpdateManager::checkAppcast() {
    fetcher_->fetch(QUrl(appcastURL_, QUrl::StrictMode), [this](const std::optional<QByteArray> &document) {
        if (document)
            read(*document);
        else
            setChecking(false);
    });
}

void UpdateManager::read(const QByteArray &document) {
    // A large document takes a moment.
    reader_.start([this, document] {
        QMetaObject::invokeMethod(
            this,
            [this, item = AppcastParser(document).parse()] {
                if (item)
                    publish(*item);
                setChecking(false);
            },
            Qt::QueuedConnection);
    });
}

void UpdateManager::publish(const AppcastItem &item) {
    if (std::exchange(latestVersion_, item.version) != item.version)
        emit latestVersionChanged();
    if (std::exchange(releaseNotes_, item.releaseNotes) != item.releaseNotes)
        emit releaseNotesChanged();
    if (std::exchange(downloadURL_, item.downloadURL) != item.downloadURL)
        emit downloadURLChanged();
    const bool isNewer = compareVersions(item.version, runningVersion_) > 0;
    if (std::exchange(updateAvailable_, isNewer) != isNewer)
        emit updateAvailableChanged();
}

void UpdateManager::downloadUpdate() {
    if (downloadURL_)
        workspace_.open(*downloadURL_);
}

void UpdateManager::setChecking(bool checking) {
    if (std::exchange(isCheckingForUpdates_, checking) != checking)
        emit isCheckingForUpdatesChanged();
}

QVariant UpdateManager::latestVersionForPages() const {
    return latestVersion_ ? QVariant(*latestVersion_) : QVariant();
}

}  // namespace pimloft
