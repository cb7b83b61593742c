// SPDX-License-Identifier: MIT
#pragma once

#include "platform/fake_log.h"
#include "platform/loginitem/login_item.h"

namespace pimloft {

/// A login item that can be made to refuse.
class FakeLoginItem final : public LoginItemService {
public:
    explicit FakeLoginItem(FakeLog &log) : log_(log) {}

    std::optional<QString> registerMainApplication() override {
        log_.line(QStringLiteral("register login item"));
        return refusal;
    }
    std::optional<QString> unregisterMainApplication() override {
        log_.line(QStringLiteral("unregister login item"));
        return refusal;
    }

    std::optional<QString> refusal;  ///< set: every call fails with this description

private:
    FakeLog &log_;
};

}  // namespace pimloft
