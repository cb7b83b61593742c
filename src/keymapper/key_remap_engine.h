// SPDX-License-Identifier: MIT
#pragma once

#include "keymapper/key_mapping.h"

#include <QObject>
#include <QString>

#include <memory>

namespace pimloft {

class KeyRemapFilter;
class KeyTap;
class NotificationCenter;
class WorkspaceService;

/// Posted after the panic gesture has stopped the remapping.
inline const QString panicDisableNotification = QStringLiteral("pimloft.keymapper.panicDisable");

/// Rewrites the keys of the whole desktop. Main thread; the tap decides on a thread of its own.
class KeyRemapEngine : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool isActive READ isActive NOTIFY isActiveChanged)

public:
    static KeyRemapEngine &shared();
    KeyRemapEngine(KeyTap &tap, WorkspaceService &workspace, NotificationCenter &notifications);
    ~KeyRemapEngine() override;

    /// Replaces what it does; installs no tap when that is nothing. The first of the mappings that fires
    /// wins; the swap of Control and Command comes before them. A desktop that refuses is reported on
    /// standard output.
    void start(const KeyMappings &mappings, bool windowsMode);
    /// Lets the keyboard go and forgets the rules, but not what it has seen of the panic gesture.
    void stop();

    /// Whether the keys go through the tap. Stays so while the desktop switches the tap off and it is
    /// switched on again.
    bool isActive() const { return isActive_; }
    const KeyMappings &activeMappings() const { return activeMappings_; }
    bool isWindowsModeEnabled() const { return windowsModeEnabled_; }
    const KeyRemapFilter &filter() const { return *filter_; }

signals:
    void isActiveChanged();

private:
    void setActive(bool active);
    void pushFrontmost();
    void panic();

    KeyTap &tap_;
    WorkspaceService &workspace_;
    NotificationCenter &notifications_;
    const std::shared_ptr<KeyRemapFilter> filter_;
    KeyMappings activeMappings_;
    bool windowsModeEnabled_ = false;
    bool isActive_ = false;
};

}  // namespace pimloft
