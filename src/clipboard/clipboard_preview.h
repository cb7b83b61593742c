// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/clipboard_content.h"

namespace pimloft {

/// The text that stands for `content` in lists and searches. Pure; any thread.
///
/// The first two lines of a text and an HTML piece without its tags, 200 characters of each at most; a
/// picture's size in pixels, or in bytes when it cannot be decoded; a file's name. A picture is decoded for
/// it, which takes its time; anything else costs no more for long contents than for short ones.
QString preview(const ClipboardContent &content);

/// What stands for a picture of which it is already known whether it can be decoded. Reads its header only.
QString picturePreview(const QByteArray &bytes, bool canBeDecoded);

}  // namespace pimloft
