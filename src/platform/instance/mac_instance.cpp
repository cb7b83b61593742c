// SPDX-License-Identifier: MIT
#include "platform/instance/local_instance.h"

namespace pimloft {

std::unique_ptr<Instance> claimInstance(const QString &runtime, const QString &login) {
    return LocalInstance::claim(runtime, login);
}

}  // namespace pimloft
