// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QStringList>
#include <QVariantList>

namespace pimloft {

class ClipboardStore;
class HotkeyManager;
class SettingsManager;

/// What the page of the clipboard history shows and changes. Main thread.
class ClipboardSettings : public QObject {
    Q_OBJECT
    Q_PROPERTY(int maxItems READ maxItems WRITE setMaxItems NOTIFY maxItemsChanged)
    Q_PROPERTY(QString maxItemsText READ maxItemsText NOTIFY maxItemsChanged)
    Q_PROPERTY(QString currentItemsText READ currentItemsText NOTIFY countsChanged)
    Q_PROPERTY(QString pinnedItemsText READ pinnedItemsText NOTIFY countsChanged)
    Q_PROPERTY(QStringList excludedApps READ excludedApps NOTIFY excludedAppsChanged)
    Q_PROPERTY(
        QString newExcludedApp READ newExcludedApp WRITE setNewExcludedApp NOTIFY newExcludedAppChanged)
    Q_PROPERTY(bool canAdd READ canAdd NOTIFY newExcludedAppChanged)
    Q_PROPERTY(QVariantList shortcuts READ shortcuts NOTIFY shortcutsChanged)

public:
    ClipboardSettings(SettingsManager &settings, ClipboardStore &store, HotkeyManager &hotkeys);

    /// The most entries that are kept. Setting stores it; the history is trimmed with the next copy.
    int maxItems() const;
    void setMaxItems(int count);
    QString maxItemsText() const;

    QString currentItemsText() const;
    QString pinnedItemsText() const;
    Q_INVOKABLE void clearUnpinned();

    QStringList excludedApps() const;
    /// Takes one out of the list; the last one leaves an empty list, which excludes nothing.
    Q_INVOKABLE void removeExcludedApp(int index);
    /// What the user has typed as the next one.
    const QString &newExcludedApp() const { return newExcludedApp_; }
    void setNewExcludedApp(const QString &name);
    /// Whether it is more than blanks.
    bool canAdd() const;
    /// Appends it without the blanks around it and empties the field. Nothing happens while it cannot be
    /// added.
    Q_INVOKABLE void addExcludedApp();

    /// A ShortcutRow for each line.
    QVariantList shortcuts() const;

signals:
    void maxItemsChanged();
    void countsChanged();
    void excludedAppsChanged();
    void newExcludedAppChanged();
    /// Another program took or left one of the combinations.
    void shortcutsChanged();

private:
    void storeExcludedApps(const QStringList &names);

    SettingsManager &settings_;
    ClipboardStore &store_;
    HotkeyManager &hotkeys_;
    QString newExcludedApp_;
};

}  // namespace pimloft
