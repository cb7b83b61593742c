// SPDX-License-Identifier: MIT
#pragma once

#include "platform/files/file_calls.h"

#include <functional>
#include <sys/stat.h>

namespace pimloft {

/// Copies what a file holds into an empty one; holes stay holes. Zero or the error number; ECANCELED once
/// `isCancelled` says so. Any thread.
int copyContent(const FileCalls &calls, int from, int to, const std::function<bool()> &isCancelled);

/// Copies owner, extended attributes (access lists are some of them), mode and times, as far as this user and
/// the other file system allow; `original` is what `from` was before it was read. Zero, or an error number
/// where the volume is full or broken. Any thread.
int copyMetadata(int from, const struct stat &original, int to);

}  // namespace pimloft
