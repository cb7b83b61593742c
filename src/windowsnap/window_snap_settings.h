// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QVariantList>

namespace pimloft {

class HotkeyManager;
class SettingsManager;

/// One line of the page's list of layouts. A value.
struct LayoutRow {
    Q_GADGET
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString keys MEMBER keys)
    Q_PROPERTY(QVariantList fractions MEMBER fractions)

public:
    QString name;
    QString keys;
    /// A QRectF for each slot, in slot order: parts of the whole between 0 and 1, y counted from the bottom
    /// upwards.
    QVariantList fractions;
};

/// What the page of window snapping shows and changes. Main thread.
class WindowSnapSettings : public QObject {
    Q_OBJECT
    Q_PROPERTY(
        double snapSensitivity READ snapSensitivity WRITE setSnapSensitivity NOTIFY snapSensitivityChanged)
    Q_PROPERTY(QString snapSensitivityText READ snapSensitivityText NOTIFY snapSensitivityChanged)
    Q_PROPERTY(QVariantList shortcuts READ shortcuts NOTIFY shortcutsChanged)
    Q_PROPERTY(QVariantList layouts READ layouts CONSTANT)

public:
    WindowSnapSettings(SettingsManager &settings, HotkeyManager &hotkeys);

    /// The width of the edge bands in points. Setting stores it at once; a drag under way follows it.
    double snapSensitivity() const;
    void setSnapSensitivity(double points);
    /// The whole points of it, as "10px".
    QString snapSensitivityText() const;

    /// A ShortcutRow for each line.
    QVariantList shortcuts() const;
    /// A LayoutRow for each layout, in their order.
    QVariantList layouts() const;

signals:
    void snapSensitivityChanged();
    /// Another program took or left one of the combinations.
    void shortcutsChanged();

private:
    SettingsManager &settings_;
    HotkeyManager &hotkeys_;
};

}  // namespace pimloft
