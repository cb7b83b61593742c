// SPDX-License-Identifier: MIT
#pragma once

#include "app/page.h"

#include <QObject>
#include <QString>
#include <QVariant>

#include <optional>

namespace pimloft {

class SettingsManager;

/// One of the five features, as the rest of the program sees it. Main thread.
class PimloftModule : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString id READ id CONSTANT)
    Q_PROPERTY(QString name READ name CONSTANT)
    Q_PROPERTY(QString icon READ icon CONSTANT)
    Q_PROPERTY(QString description READ description CONSTANT)
    Q_PROPERTY(bool isEnabled READ isEnabled WRITE setEnabled NOTIFY isEnabledChanged)
    Q_PROPERTY(bool requiresAccessibility READ requiresAccessibility CONSTANT)
    Q_PROPERTY(QVariant panelView READ panelViewForPages CONSTANT)

public:
    /// Stable lower-case identifier, also the middle part of the enabled key.
    QString id() const { return constants_.id; }
    QString name() const { return constants_.name; }
    /// Name of a system symbol.
    QString icon() const { return constants_.icon; }
    /// One line for lists.
    QString description() const { return constants_.description; }
    /// Whether it can only work with the accessibility permission.
    bool requiresAccessibility() const { return constants_.requiresAccessibility; }

    /// Whether the user has it switched on. Setting stores it and starts or stops the feature at once.
    bool isEnabled() const { return isEnabled_; }
    void setEnabled(bool enabled);

    /// Starts the feature; does nothing when it runs, or while a permission that it needs is missing.
    virtual void activate() = 0;
    /// Stops it and takes its windows away; does nothing when it is not running.
    virtual void deactivate() = 0;
    /// Its page in the settings window; nothing while it has none.
    virtual std::optional<Page> settingsView() = 0;
    /// What its row in the tray panel can unfold; nothing for most.
    virtual std::optional<Page> panelView() { return std::nullopt; }

signals:
    void isEnabledChanged();

protected:
    struct Constants {
        QString id;
        QString name;
        QString icon;
        QString description;
        bool requiresAccessibility;
    };
    PimloftModule(Constants constants, SettingsManager &settings);

private:
    QVariant panelViewForPages();

    const Constants constants_;
    SettingsManager &settings_;
    bool isEnabled_;
};

}  // namespace pimloft
