// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pasteboard/pasteboard.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace pimloft {

// The general pasteboard, one operation of the system each. Texts are UTF-8. Main thread.

long generalChangeCount();
/// What it offers, as the system names it.
std::vector<std::string> generalTypes();

/// The bytes, or how many there are where that is more than `cap`.
struct MacPasteBytes {
    std::string bytes;
    std::size_t count = 0;
};
/// Of one of the types that are bytes: PNG, TIFF, HTML, RTF. Nothing where it offers none.
std::optional<MacPasteBytes> generalData(PasteType type, std::size_t cap);
std::optional<std::string> generalText();
/// A text under a name that the system does not know.
std::optional<std::string> generalText(const std::string &type);
/// The files, as links; only files count.
std::vector<std::string> generalFileLinks();

void clearGeneral();
void setGeneralText(const std::string &text);
void setGeneralData(PasteType type, const std::string &bytes);
void writeGeneralLinks(const std::vector<std::string> &links);

}  // namespace pimloft
