// SPDX-License-Identifier: MIT
#pragma once

#include "platform/files/file_calls.h"

namespace pimloft {

/// Renames in one step, never over anything: EEXIST where the name is taken. Where the file system cannot do
/// that by itself, the name is claimed first, by a link or an empty item that is then replaced. Zero or the
/// error number; EINVAL for a folder that is to go into itself. Any thread.
int renameNeverReplacing(const FileCalls &calls, Place from, Place to);

/// Whether `folder` is `item` or lies somewhere in it, mounted volumes included.
bool isInside(int folder, Place item);

}  // namespace pimloft
