// SPDX-License-Identifier: MIT
#include "app/pimloft_module.h"

#include "app/settings_manager.h"

namespace pimloft {

PimloftModule::PimloftModule(Constants constants, SettingsManager &settings)
    : constants_(std::move(constants)), settings_(settings),
      isEnabled_(settings.isModuleEnabled(constants_.id)) {
}

void PimloftModule::setEnabled(bool enabled) {
    if (isEnabled_ == enabled)
        return;
    isEnabled_ = enabled;
    settings_.setModuleEnabled(constants_.id, enabled);
    if (enabled)
        activate();
    else
        deactivate();
    emit isEnabledChanged();
}

QVariant PimloftModule::panelViewForPages() {
    const auto page = panelView();
    return page ? QVariant::fromValue(*page) : QVariant();
}

}  // namespace pimloft
