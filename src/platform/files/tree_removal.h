// SPDX-License-Identifier: MIT
#pragma once

#include "platform/files/copied_entry.h"
#include "platform/files/file_calls.h"

namespace pimloft {

/// Removes what was copied from `folder`. What has come since stays, and so does what has changed (EBUSY).
/// Stops at the first error; zero or its number. Any thread.
int removeCopied(const FileCalls &calls, int folder, const CopiedEntry &entry);

/// Removes an item of our own with all that is in it, as far as that goes. Any thread.
void removeTree(const FileCalls &calls, Place place);

/// The names in an open folder; empty for one that cannot be read, and then `error` is its number.
std::vector<QByteArray> namesIn(int folder, int &error);

}  // namespace pimloft
