// SPDX-License-Identifier: MIT
#pragma once

#include "platform/events/mouse_watch.h"

namespace pimloft {

/// The left button by a tap that only listens. Main thread.
///
/// A mouse reports up to a thousand moves a second; between two frames only the newest counts. A watch that
/// the system ended stays ended until the next one is installed.
class MacMouseWatch final : public MouseWatch {
public:
    std::unique_ptr<MouseTap> install(std::function<void(const MouseEvent &)> handler) override;
    QPointF location() override;
};

}  // namespace pimloft
