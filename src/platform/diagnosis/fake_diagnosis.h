// SPDX-License-Identifier: MIT
#pragma once

#include "platform/diagnosis/diagnosis.h"

namespace pimloft {

/// A desktop that grants and refuses what a test lists.
class FakeDiagnosis final : public DiagnosisService {
public:
    std::vector<Finding> findings() override { return list; }

    std::vector<Finding> list;
};

}  // namespace pimloft
