// SPDX-License-Identifier: MIT
#pragma once

#include "platform/appearance/appearance.h"
#include "platform/appearance/mac_effective_appearance.h"
#include "platform/mac/mac_notice.h"

#include <QObject>

namespace pimloft {

/// The look that the system gives the application, which follows the user's. Main thread.
class MacAppearance final : public AppearanceService {
public:
    MacAppearance();

    bool isDark() const override { return look_.isDark; }
    bool isHighContrast() const override { return look_.isHighContrast; }
    bool reducesMotion() const override { return look_.reducesMotion; }
    QIcon traySymbol(const QString &name) const override;

private:
    struct Look {
        bool isDark;
        bool isHighContrast;
        bool reducesMotion;

        friend bool operator==(const Look &, const Look &) = default;
    };
    static Look current();
    void update();

    Look look_;
    MacAppearanceObservation appearance_;
    MacNotice options_;
    QObject calls_;  ///< receives what is queued
};

}  // namespace pimloft
