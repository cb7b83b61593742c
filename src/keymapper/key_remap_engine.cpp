// SPDX-License-Identifier: MIT
#include "keymapper/key_remap_engine.h"

#include "app/notification_center.h"
#include "app/process.h"
#include "base/console.h"
#include "keymapper/key_remap_filter.h"
#include "platform/workspace/workspace.h"

#include <utility>

namespace pimloft {

KeyRemapEngine &KeyRemapEngine::shared() {
    return Process::current().shared<KeyRemapEngine>([](Process &process) {
        return std::make_unique<KeyRemapEngine>(process.platform().keyTap, process.platform().workspace,
                                                NotificationCenter::shared());
    });
}

KeyRemapEngine::KeyRemapEngine(KeyTap &tap, WorkspaceService &workspace, NotificationCenter &notifications)
    : tap_(tap), workspace_(workspace), notifications_(notifications),
      filter_(std::make_shared<KeyRemapFilter>([this] {
          // On the tap's thread. The engine outlives the tap's last call, and what is posted dies with it.
          QMetaObject::invokeMethod(this, &KeyRemapEngine::panic, Qt::QueuedConnection);
      })) {
    tap_.onNotice = [this](KeyTap::Notice) {
        if (isActive_)
            tap_.enable();
    };
    workspace_.onFrontmostChanged = [this] {
        if (isActive_)
            pushFrontmost();
    };
}

KeyRemapEngine::~KeyRemapEngine() {
    tap_.remove();
    tap_.onNotice = nullptr;
    workspace_.onFrontmostChanged = nullptr;
}

void KeyRemapEngine::start(const KeyMappings &mappings, bool windowsMode) {
    stop();
    activeMappings_ = mappings;
    windowsModeEnabled_ = windowsMode;
    if (mappings.empty() && !windowsMode)
        return;
    filter_->set(mappings, windowsMode);
    pushFrontmost();
    if (!tap_.install(filter_)) {
        printLine(QStringLiteral("KeyRemapEngine: Failed to create event tap"));
        return;
    }
    setActive(true);
}

void KeyRemapEngine::stop() {
    tap_.remove();
    filter_->set({}, false);
    activeMappings_.clear();
    windowsModeEnabled_ = false;
    setActive(false);
}

void KeyRemapEngine::setActive(bool active) {
    if (std::exchange(isActive_, active) != active)
        emit isActiveChanged();
}

void KeyRemapEngine::pushFrontmost() {
    const auto application = workspace_.frontmostApplication();
    const auto bundleId = application ? application->bundleId : std::nullopt;
    tap_.setFrontmost(bundleId.value_or(QString()).toStdString());
}

void KeyRemapEngine::panic() {
    stop();
    notifications_.post(panicDisableNotification);
}

}  // namespace pimloft
