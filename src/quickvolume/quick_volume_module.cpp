// SPDX-License-Identifier: MIT
#include "quickvolume/quick_volume_module.h"

#include "app/settings_manager.h"
#include "quickvolume/audio_engine.h"

namespace pimloft {

namespace {

Page pageOf(const QString &name, VolumeMixer &mixer) {
    return {QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/QuickVolume/%1.qml").arg(name)),
            {{QStringLiteral("mixer"), QVariant::fromValue<QObject *>(&mixer)}}};
}

}  // namespace

std::unique_ptr<QuickVolumeModule> QuickVolumeModule::create() {
    return std::make_unique<QuickVolumeModule>(SettingsManager::shared(), AudioEngine::shared());
}

QuickVolumeModule::QuickVolumeModule(SettingsManager &settings, AudioEngine &engine)
    : PimloftModule({.id = QStringLiteral("quickvolume"),
                     .name = QStringLiteral("QuickVolume"),
                     .icon = QStringLiteral("speaker.wave.3"),
                     .description = tr("Per-app volume mixer in your menu bar"),
                     .requiresAccessibility = false},
                    settings),
      engine_(engine), mixer_(engine) {
}

void QuickVolumeModule::activate() {
    engine_.start();
}

void QuickVolumeModule::deactivate() {
    engine_.stop();
}

std::optional<Page> QuickVolumeModule::settingsView() {
    return pageOf(QStringLiteral("QuickVolumeSettings"), mixer_);
}

std::optional<Page> QuickVolumeModule::panelView() {
    return pageOf(QStringLiteral("VolumeMixerView"), mixer_);
}

}  // namespace pimloft
