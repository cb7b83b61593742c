// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/clipboard_item.h"

#include <string>
#include <vector>

namespace pimloft::test {

/// A fresh entry with this content, copied in "Editor".
ClipboardItem entry(ClipboardContent content);
ClipboardItem text(const QString &string);
ClipboardItem pinned(ClipboardItem item);
/// Different bytes for each seed, the same for the same.
QByteArray noise(qsizetype size, unsigned seed);

/// The previews in their order, pinned ones with a star: "A, B*".
std::string summary(const std::vector<ClipboardItem> &items);

/// Whether every field is the same; `==` compares only the identities.
bool areTheSame(const ClipboardItem &a, const ClipboardItem &b);
bool areTheSame(const std::vector<ClipboardItem> &a, const std::vector<ClipboardItem> &b);

/// The content of a file; empty when there is none.
QByteArray contentOf(const QString &path);
void writeFile(const QString &path, const QByteArray &bytes);

}  // namespace pimloft::test
