// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/clipboard_item.h"

namespace pimloft {

class HistoryOutput;

/// Writes one entry as the history file holds it: a compact JSON object, its keys in the order of the fields.
/// Answers why there is no such form, or nothing. Main thread.
std::optional<QString> encodeItem(const ClipboardItem &item, HistoryOutput &output);

}  // namespace pimloft
