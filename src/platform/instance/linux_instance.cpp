// SPDX-License-Identifier: MIT
#include "platform/instance/instance_on_bus.h"
#include "platform/instance/local_instance.h"

namespace pimloft {

std::unique_ptr<Instance> claimInstance(const QString &runtime, const QString &login) {
    auto instance = LocalInstance::claim(runtime, login);
    if (instance)
        QMetaObject::invokeMethod(
            instance.get(), [self = instance.get()] { publish(*self, QDBusConnection::sessionBus()); },
            Qt::QueuedConnection);
    return instance;
}

}  // namespace pimloft
