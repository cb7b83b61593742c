// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

namespace pimloft::test {

/// A story of what the user does and of what follows: every line is a step, and the indented lines under it
/// are what followed from it.
struct Scenario {
    QString title;
    QStringList lines;
};

/// What begins the lines that follow from a step.
inline const QString scenarioIndent = QStringLiteral("    ");

/// Reads scenarios that are separated by "== title" lines; empty lines and "#" comments are left out.
std::vector<Scenario> readScenarios(const QString &path);

void PrintTo(const Scenario &scenario, std::ostream *out);

/// "A drag of 5 points" becomes "ADragOf5Points".
std::string scenarioName(const testing::TestParamInfo<Scenario> &info);

}  // namespace pimloft::test
