// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/clipboard_content.h"

namespace pimloft {

/// The text that stands for `content` in lists and searches. Pure; any thread.
///
/// The first two lines of a text and an HTML piece without its tags, 200 characters of each at most; a
/// picture's size in pixels, or in bytes when it is none that can be read; a file's name. Costs no more for
/// long contents than for short ones: of a picture only its header is read.
QString preview(const ClipboardContent &content);

}  // namespace pimloft
