// SPDX-License-Identifier: MIT
#include "platform/loginitem/mac_login_item.h"

#include "platform/loginitem/mac_app_service.h"

namespace pimloft {

namespace {

std::optional<QString> failure(const MacLoginAnswer &answer) {
    if (answer.outcome != MacLoginAnswer::Outcome::failed)
        return std::nullopt;
    return QString::fromStdString(answer.description);
}

}  // namespace

std::optional<QString> MacLoginItem::registerMainApplication() {
    return failure(registerMainApp());
}

std::optional<QString> MacLoginItem::unregisterMainApplication() {
    return failure(unregisterMainApp());
}

}  // namespace pimloft
