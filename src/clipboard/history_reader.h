// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/clipboard_item.h"

#include <functional>
#include <variant>
#include <vector>

namespace pimloft {

/// The entries of a history file, or why it cannot be read: a sentence that tells nothing of its content.
using HistoryResult = std::variant<std::vector<ClipboardItem>, QString>;

/// Reads a history. `source` fills a piece and answers its size, zero at the end, negative when it fails.
/// Takes any JSON text with these members, whoever wrote it; one entry that is wrong fails the whole. Needs
/// little more memory than the entries themselves. Any thread.
HistoryResult readHistory(const std::function<qint64(char *, qint64)> &source);

}  // namespace pimloft
