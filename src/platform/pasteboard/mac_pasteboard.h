// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pasteboard/pasteboard.h"

namespace pimloft {

/// The general pasteboard, which the system itself keeps. What is asked is answered in the next turn of the
/// event loop. Main thread.
class MacPasteboard final : public PasteboardService {
public:
    qint64 changeCount() const override;
    void origin(qint64 change, QObject *context,
                std::function<void(std::optional<PasteOrigin>)> done) override;
    void read(qint64 change, std::vector<PasteType> wanted, qsizetype cap, QObject *context,
              std::function<void(PasteData)> done) override;
    qint64 write(std::vector<PasteItem> items) override;
};

}  // namespace pimloft
