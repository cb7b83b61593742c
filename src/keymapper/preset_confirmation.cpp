// SPDX-License-Identifier: MIT
#include "keymapper/preset_confirmation.h"

#include "keymapper/key_mapper_module.h"
#include "keymapper/key_mapping_store.h"
#include "keymapper/second_timer.h"

namespace pimloft {

namespace {

constexpr int secondsToConfirm = 10;

}  // namespace

PresetConfirmation::PresetConfirmation(KeyMapperModule &module, KeyMappingStore &store,
                                       std::unique_ptr<SecondTimer> timer)
    : module_(module), store_(store), confirmationTimer_(std::move(timer)) {
    confirmationTimer_->onTick = [this] { tick(); };
}

PresetConfirmation::~PresetConfirmation() = default;

void PresetConfirmation::enablePreset(KeyMappingPreset preset) {
    pendingPreset_ = preset;
    showConfirmation_ = true;
    confirmationCountdown_ = secondsToConfirm;
    store_.setPreset(preset, true);
    module_.reloadMappings();
    confirmationTimer_->start();
    emit changed();
}

void PresetConfirmation::disablePreset(KeyMappingPreset preset) {
    store_.setPreset(preset, false);
    module_.reloadMappings();
}

void PresetConfirmation::confirmPreset() {
    end();
    emit changed();
}

void PresetConfirmation::revertPreset() {
    const std::optional<KeyMappingPreset> pending = pendingPreset_;
    end();
    if (pending)
        disablePreset(*pending);
    emit changed();
}

void PresetConfirmation::tick() {
    if (--confirmationCountdown_ < 1)
        return revertPreset();
    emit changed();
}

void PresetConfirmation::end() {
    confirmationTimer_->stop();
    pendingPreset_.reset();
    showConfirmation_ = false;
}

}  // namespace pimloft
