// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

/// Stand-ins for the system's frameworks. Strict: what a real system would answer with a crash, a leak or
/// silence is a problem that the test is told of. Main thread.
namespace pimloft::test::mac {

/// Forgets everything, as if the system had just been started.
void reset();

/// A call that the tests read, one line each.
void note(const std::string &line);
/// The calls since the last time.
std::string takeLog();

/// Misuse that a real system would not forgive.
void complain(const std::string &problem);
std::string problems();

/// Objects of the C frameworks that nobody has released. What lives as long as the program is not counted.
int liveObjects();
/// Preparations of a copy that nobody has freed.
int liveCopyStates();

/// "0x1c00"
std::string hex(std::uint64_t number);
/// "dOut" of its number.
std::string fourCharacters(std::uint32_t code);
/// "3" and "0.5" instead of "3.000000" and "0.500000".
std::string plain(double number);

// Each fake's own part of `reset`.
void resetAppKit();
void resetApplicationServices();
void resetAudio();
void resetCarbon();
void resetEvents();
void resetFiles();
void resetPreferences();

}  // namespace pimloft::test::mac
