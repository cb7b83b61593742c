// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace pimloft::test::mac {

// What another run of the application, or the user on the command line, has stored.

void storeFlag(const std::string &key, bool value);
void storeNumber(const std::string &key, double value);
void storeWhole(const std::string &key, long long value);
void storeText(const std::string &key, const std::string &value);
void storeTexts(const std::string &key, const std::vector<std::string> &values);

/// "true", "50 (whole)", "12.5", "\"text\"", "[...]"; "nothing".
std::string stored(const std::string &key);

}  // namespace pimloft::test::mac
