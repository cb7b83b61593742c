// SPDX-License-Identifier: MIT
#pragma once

#include "platform/files/files.h"

namespace pimloft {

/// What an error number means to who moves files. Any thread.
FileError fileError(int number);

/// Nothing for zero.
FileOutcome fileOutcome(int number);

/// A folder cannot be moved into itself.
FileError intoItself();

}  // namespace pimloft
