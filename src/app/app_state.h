// SPDX-License-Identifier: MIT
#pragma once

#include "app/pimloft_module.h"

#include <QList>
#include <QObject>

#include <memory>

namespace pimloft {

class AccessibilityManager;
class ClipboardModule;
class FinderFixModule;
class KeyMapperModule;
class QuickVolumeModule;
class WindowSnapModule;

/// The five modules and what the menu bar shows of them. Main thread.
class AppState : public QObject {
    Q_OBJECT
    Q_MOC_INCLUDE("clipboard/clipboard_module.h")
    Q_MOC_INCLUDE("finderfix/finder_fix_module.h")
    Q_MOC_INCLUDE("keymapper/key_mapper_module.h")
    Q_MOC_INCLUDE("quickvolume/quick_volume_module.h")
    Q_MOC_INCLUDE("windowsnap/window_snap_module.h")
    Q_PROPERTY(pimloft::WindowSnapModule *windowSnap READ windowSnap CONSTANT)
    Q_PROPERTY(pimloft::ClipboardModule *clipboardPlus READ clipboardPlus CONSTANT)
    Q_PROPERTY(pimloft::FinderFixModule *finderFix READ finderFix CONSTANT)
    Q_PROPERTY(pimloft::KeyMapperModule *keyMapper READ keyMapper CONSTANT)
    Q_PROPERTY(pimloft::QuickVolumeModule *quickVolume READ quickVolume CONSTANT)
    Q_PROPERTY(QList<pimloft::PimloftModule *> allModules READ allModules CONSTANT)
    Q_PROPERTY(QString menuBarIcon READ menuBarIcon NOTIFY changed)

public:
    static AppState &shared();

    /// The modules in the order in which they are made, started and stopped.
    struct Modules {
        std::unique_ptr<WindowSnapModule> windowSnap;
        std::unique_ptr<ClipboardModule> clipboardPlus;
        std::unique_ptr<FinderFixModule> finderFix;
        std::unique_ptr<KeyMapperModule> keyMapper;
        std::unique_ptr<QuickVolumeModule> quickVolume;
    };
    /// Starts no module.
    AppState(Modules modules, AccessibilityManager &accessibility);
    ~AppState() override;

    /// Starts every enabled module; one that needs the accessibility permission only while it is granted.
    void activateEnabledModules();
    /// Stops every module, enabled or not.
    void deactivateModules();

    WindowSnapModule *windowSnap() const { return modules_.windowSnap.get(); }
    ClipboardModule *clipboardPlus() const { return modules_.clipboardPlus.get(); }
    FinderFixModule *finderFix() const { return modules_.finderFix.get(); }
    KeyMapperModule *keyMapper() const { return modules_.keyMapper.get(); }
    QuickVolumeModule *quickVolume() const { return modules_.quickVolume.get(); }
    QList<PimloftModule *> allModules() const;

    /// Name of the system symbol in the menu bar.
    QString menuBarIcon() const;

signals:
    /// The key mapper changed, and with it perhaps the menu bar icon. Other modules' changes are not told.
    void changed();

private:
    Modules modules_;
    AccessibilityManager &accessibility_;
};

}  // namespace pimloft
