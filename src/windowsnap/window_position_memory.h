// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace pimloft {

/// The name under which window positions are to be remembered across runs. Nothing is stored under it yet.
class WindowPositionMemory {
public:
    explicit WindowPositionMemory(QString key) : storageKey(std::move(key)) {}

    const QString storageKey;
};

}  // namespace pimloft
