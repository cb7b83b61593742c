// SPDX-License-Identifier: MIT
#pragma once

#include "app/settings_keys.h"
#include "updates/appcast_item.h"

#include <QObject>
#include <QThreadPool>

#include <memory>
#include <optional>

namespace pimloft {

class AppcastFetcher;
class WorkspaceService;

/// Finds out whether a newer version is published, when the user asks. Never downloads one itself. Main
/// thread.
///
/// A check that fails, for whatever reason, ends silently and leaves what is known.
class UpdateManager : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool isCheckingForUpdates READ isCheckingForUpdates NOTIFY isCheckingForUpdatesChanged)
    Q_PROPERTY(bool updateAvailable READ updateAvailable NOTIFY updateAvailableChanged)
    Q_PROPERTY(QVariant latestVersion READ latestVersionForPages NOTIFY latestVersionChanged)

public:
    static UpdateManager &shared();
    /// `runningVersion` is what a release has to be newer than.
    UpdateManager(QString appcastURL, QString runningVersion, std::unique_ptr<AppcastFetcher> fetcher,
                  WorkspaceService &workspace);
    /// Waits for a document that is being read.
    ~UpdateManager() override;

    /// Starts a check, also while another one is running.
    Q_INVOKABLE void checkForUpdatesNow();
    /// Has the user's browser open the latest release; does nothing where its address is not known.
    Q_INVOKABLE void downloadUpdate();

    bool isCheckingForUpdates() const { return isCheckingForUpdates_; }
    /// Whether the feed's first release is newer than the running version.
    bool updateAvailable() const { return updateAvailable_; }
    /// The feed's first release; nothing until a check has found one.
    const std::optional<QString> &latestVersion() const { return latestVersion_; }
    const std::optional<QString> &releaseNotes() const { return releaseNotes_; }
    const std::optional<QUrl> &downloadURL() const { return downloadURL_; }

    /// Kept for checks at intervals, which are not made: seconds, and where the time of the last one would
    /// be.
    static constexpr double checkInterval = 86400;
    inline static const QString lastCheckKey = SettingsKeys::lastUpdateCheck;

signals:
    void isCheckingForUpdatesChanged();
    void updateAvailableChanged();
    void latestVersionChanged();
    void releaseNotesChanged();
    void downloadURLChanged();

private:
    void checkAppcast();
    void read(const QByteArray &document);
    void publish(const AppcastItem &item);
    void setChecking(bool checking);
    QVariant latestVersionForPages() const;

    const QString appcastURL_;
    const QString runningVersion_;
    const std::unique_ptr<AppcastFetcher> fetcher_;
    WorkspaceService &workspace_;
    bool isCheckingForUpdates_ = false;
    bool updateAvailable_ = false;
    std::optional<QString> latestVersion_;
    std::optional<QString> releaseNotes_;
    std::optional<QUrl> downloadURL_;
    QThreadPool reader_;
};

}  // namespace pimloft
