// SPDX-License-Identifier: MIT
#pragma once

#include "platform/displays/displays.h"
#include "platform/mac/mac_notice.h"

#include <QObject>

namespace pimloft {

/// The screens as AppKit lists them, whose coordinates are desktop points. Kept until the system tells of a
/// change. Main thread.
class MacDisplays final : public DisplayService {
public:
    MacDisplays();

    const std::vector<Display> &displays() override;
    std::optional<Display> mainDisplay() override;

private:
    void invalidate();

    std::vector<Display> displays_;
    bool isCurrent_ = false;
    bool isAnnouncing_ = false;
    MacNotice changes_;
    QObject calls_;  ///< receives what is queued
};

}  // namespace pimloft
