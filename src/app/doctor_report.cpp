// SPDX-License-Identifier: MIT
#include "app/doctor_report.h"

#include "app/bundle_info.h"
#include "app/hotkey_manager.h"
#include "app/shortcut_text.h"

#include <algorithm>

namespace pimloft {

std::vector<Finding> doctorFindings(DiagnosisService &diagnosis, const HotkeyManager &hotkeys) {
    std::vector<Finding> findings = diagnosis.findings();
    const auto &combinations = hotkeys.combinations();
    const auto granted = std::count_if(combinations.begin(), combinations.end(),
                                       [](const auto &combination) { return combination.second; });
    findings.push_back({.subject = QStringLiteral("Shortcuts"),
                        .granted = granted == qsizetype(combinations.size()),
                        .detail = QStringLiteral("%1 of %2 granted").arg(granted).arg(combinations.size())});
    for (const auto &[combination, isGranted] : combinations)
        if (!isGranted)
            findings.push_back({.subject = shortcutText(combination.first, combination.second),
                                .granted = false,
                                .detail = QStringLiteral("belongs to another program")});
    return findings;
}

QString doctorReport(const std::vector<Finding> &findings) {
    qsizetype width = 0;
    for (const Finding &finding : findings)
        width = std::max(width, finding.subject.size());
    QString report = QStringLiteral("Pimloft %1 (%2)\n").arg(appVersion(), buildNumber());
    for (const Finding &finding : findings)
        report += QStringLiteral("  %1  %2  %3\n")
                      .arg(finding.granted ? QStringLiteral("ok") : QStringLiteral("no"),
                           finding.subject.leftJustified(width), finding.detail);
    return report.trimmed();
}

}  // namespace pimloft
