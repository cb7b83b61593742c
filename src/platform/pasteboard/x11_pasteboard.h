// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pasteboard/pasteboard.h"

namespace pimloft {

/// Sees nothing and writes nothing: the X server's selections are not yet taken part in. Main thread.
class X11Pasteboard final : public PasteboardService {
public:
    qint64 changeCount() const override { return 0; }
    void origin(qint64 change, QObject *context,
                std::function<void(std::optional<PasteOrigin>)> done) override;
    void read(qint64 change, std::vector<PasteType> wanted, qsizetype cap, QObject *context,
              std::function<void(PasteData)> done) override;
    qint64 write(std::vector<PasteItem>) override { return 0; }
};

}  // namespace pimloft
