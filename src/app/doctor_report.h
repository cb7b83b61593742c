// SPDX-License-Identifier: MIT
#pragma once

#include "platform/diagnosis/diagnosis.h"

#include <QString>

#include <vector>

namespace pimloft {

class DiagnosisService;
class HotkeyManager;

/// What the desktop grants and refuses this program, with every shortcut that was asked for. Main thread.
std::vector<Finding> doctorFindings(DiagnosisService &diagnosis, const HotkeyManager &hotkeys);

/// The findings as aligned lines under the program's name and version: what --doctor prints.
QString doctorReport(const std::vector<Finding> &findings);

}  // namespace pimloft
