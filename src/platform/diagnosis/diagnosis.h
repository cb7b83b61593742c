// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

namespace pimloft {

/// One thing that this desktop grants or refuses.
struct Finding {
    QString subject;  ///< "Session", "Key events", ...
    bool granted = true;
    QString detail;  ///< what was found, and what that means for the user

    friend bool operator==(const Finding &, const Finding &) = default;
};

/// What this desktop lets the program do, in words. Main thread.
class DiagnosisService {
public:
    virtual ~DiagnosisService() = default;

    virtual std::vector<Finding> findings() = 0;
};

}  // namespace pimloft
