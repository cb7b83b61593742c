// SPDX-License-Identifier: MIT
#include "ui/settings_window.h"

#include "app/pimloft_module.h"

#include <utility>

namespace pimloft {

SettingsWindow::SettingsWindow(ViewHost &views, const Page &general, const QList<PimloftModule *> &modules)
    : views_(views) {
    tabs_.push_back({tr("General"), QStringLiteral("gear"), general});
    for (PimloftModule *module : modules) {
        const auto page = module->settingsView();
        if (page && views_.offers(*page))
            tabs_.push_back({module->name(), module->icon(), *page});
    }
}

SettingsWindow::~SettingsWindow() = default;

void SettingsWindow::open() {
    if (!window_)
        window_ = views_.makeWindow({.title = tr("Pimloft Settings"),
                                     .contentSize = QSize(760, 560),
                                     .isResizable = true,
                                     .isFloating = false,
                                     .page = {QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/Ui/SettingsView.qml")),
                                              {{QStringLiteral("window"), QVariant::fromValue(this)}}}});
    window_->present();
}

void SettingsWindow::close() {
    if (window_)
        window_->close();
}

void SettingsWindow::select(int index) {
    if (index < 0 || index >= int(tabs_.size()))
        return;
    if (std::exchange(selectedTab_, std::size_t(index)) != std::size_t(index))
        emit selectedTabChanged();
}

void SettingsWindow::selectNext() {
    select(int((selectedTab_ + 1) % tabs_.size()));
}

void SettingsWindow::selectPrevious() {
    select(int((selectedTab_ + tabs_.size() - 1) % tabs_.size()));
}

QVariantList SettingsWindow::tabs() const {
    QVariantList list;
    for (const SettingsTab &tab : tabs_)
        list << QVariant::fromValue(tab);
    return list;
}

}  // namespace pimloft
