// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QUuid>
#include <QVariantList>

#include <functional>
#include <vector>

namespace pimloft {

class PreferencesService;

/// One thing that a version brings. A value; any thread.
struct WhatsNewFeature {
    Q_GADGET
    Q_PROPERTY(QUuid id MEMBER id)
    Q_PROPERTY(QString icon MEMBER icon)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString description MEMBER description)

public:
    QUuid id = QUuid::createUuid();
    QString icon;  ///< name of a system symbol
    QString title;
    QString description;
};

/// The news of one version, which a user is told of once. Main thread.
class WhatsNew : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString version MEMBER version_ CONSTANT)
    Q_PROPERTY(QVariantList features READ features CONSTANT)

public:
    /// Whether the news of `version` are not yet known to the user.
    static bool shouldShow(const QString &version, const PreferencesService &defaults);
    static std::vector<WhatsNewFeature> currentFeatures();

    /// `onDismiss` is called at the end, when that has been stored.
    WhatsNew(QString version, std::vector<WhatsNewFeature> features, PreferencesService &defaults,
             std::function<void()> onDismiss);

    /// The user has seen them.
    Q_INVOKABLE void dismiss();

    QVariantList features() const;

private:
    const QString version_;
    const std::vector<WhatsNewFeature> features_;
    PreferencesService &defaults_;
    std::function<void()> onDismiss_;
};

}  // namespace pimloft
