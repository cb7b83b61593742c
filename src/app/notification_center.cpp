// SPDX-License-Identifier: MIT
#include "app/notification_center.h"

#include "app/process.h"

namespace pimloft {

NotificationCenter &NotificationCenter::shared() {
    return Process::current().shared<NotificationCenter>(
        [](Process &) { return std::make_unique<NotificationCenter>(); });
}

void NotificationCenter::post(const QString &name) {
    emit posted(name);
}

void NotificationCenter::observe(const QString &name, QObject *context, std::function<void()> action) {
    connect(this, &NotificationCenter::posted, context,
            [name, action = std::move(action)](const QString &postedName) {
                if (postedName == name)
                    action();
            });
}

}  // namespace pimloft
